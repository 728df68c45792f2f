#pragma once
#include <iosfwd>
#include <vector>

#include "adapters/views/file_reader.h"
#include "adapters/views/stored_views.h"
#include "apps/options.h"
#include "platform/rdo.h"

namespace catalogador {

/// What the commands on views as files have in common. All of them raise RuntimeError.

std::vector<views::View> viewsOf(const std::vector<views::ViewFile>& files);
views::StoredViews storedIn(rdoConnection& connection);

/// Checks what the database would be, prints the errors or what is changed, and changes it in one
/// transaction unless the call is a dry run. False when there are errors; then nothing is changed.
bool applyFiles(std::ostream& out, rdoConnection& connection,
                const std::vector<views::ViewFile>& files, const Options& options);

/// Applies the files to a scratch database, plays their scripts there and compares the
/// transcripts. Gives the exit status.
int testViews(const Options& options);

}  // namespace catalogador
