#include "adapters/services/window_sizes.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <sstream>

#include "temporary_file.h"

namespace catalogador::services {
namespace {

class RememberedSizes : public testing::Test {
  protected:
    [[nodiscard]] std::string content() const {
        std::ostringstream text;
        text << std::ifstream(file_.path()).rdbuf();
        return text.str();
    }

    test::TemporaryFile file_;
};

TEST_F(RememberedSizes, AreGivenBackForTheSameUserAndWindowOnly) {
    WindowSizes(file_.path(), "maria").write("4", {{10500, 9000}, false});
    WindowSizes(file_.path(), "maria").write("7", {{9000, 7500}, true});
    WindowSizes(file_.path(), "juan").write("4", {{6000, 6000}, false});
    WindowSizes(file_.path(), "maria").write("4", {{10600, 9100}, false});
    EXPECT_EQ(WindowSizes(file_.path(), "maria").read("4"), (WindowSize{{10600, 9100}, false}));
    EXPECT_EQ(WindowSizes(file_.path(), "maria").read("7"), (WindowSize{{9000, 7500}, true}));
    EXPECT_EQ(WindowSizes(file_.path(), "juan").read("4"), (WindowSize{{6000, 6000}, false}));
    EXPECT_FALSE(WindowSizes(file_.path(), "juan").read("7"));
    EXPECT_EQ(content(),
              "[maria]\n4 = 10600 x 9100\n7 = 9000 x 7500 maximized\n[juan]\n4 = 6000 x 6000\n");
}

TEST_F(RememberedSizes, LeaveLinesAloneThatAreNotTheirs) {
    std::ofstream(file_.path()) << "; mine\n[ana]\n1 = 8000 x 8000\n";
    WindowSizes(file_.path(), "juan").write("1", {{7000, 7000}, false});
    EXPECT_EQ(content(), "; mine\n[ana]\n1 = 8000 x 8000\n[juan]\n1 = 7000 x 7000\n");
}

TEST_F(RememberedSizes, AreNoneWhereTheFileIsDamaged) {
    for (const char* damaged : {"", "x", "0 x 0", "-5 x 900", "9000", "9000 y 7000",
                                "9000000000 x 7000", "9000000 x 7000", "nan x nan"}) {
        std::ofstream(file_.path()) << "[ana]\n1 = " << damaged << "\n";
        EXPECT_FALSE(WindowSizes(file_.path(), "ana").read("1")) << damaged;
    }
}

TEST_F(RememberedSizes, AreForgottenWhereNothingCanBeWritten) {
    const WindowSizes sizes(file_.path() + "/folder/file", "ana");
    std::ofstream(file_.path()) << "no folder";
    sizes.write("1", {{7000, 7000}, false});
    EXPECT_FALSE(sizes.read("1"));
    EXPECT_FALSE(WindowSizes("", "ana").read("1"));
    const WindowSizes twoLines(file_.path(), "a\n[juan");
    twoLines.write("1", {{7000, 7000}, false});
    EXPECT_EQ(content(), "no folder");
}

}  // namespace
}  // namespace catalogador::services
