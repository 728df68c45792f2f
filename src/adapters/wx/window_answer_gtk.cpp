#include <gtk/gtk.h>

#include "adapters/wx/window_answer.h"

namespace catalogador::wx {

bool hasItsSize(const wxTopLevelWindow& window) {
    int width = 0;
    int height = 0;
    gtk_window_get_size(GTK_WINDOW(window.GetHandle()), &width, &height);
    const auto& decoration = window.m_decorSize;
    const wxSize size = window.GetSize();
    return width == size.x - decoration.left - decoration.right &&
           height == size.y - decoration.top - decoration.bottom;
}

}  // namespace catalogador::wx
