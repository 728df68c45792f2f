#include "adapters/services/opening.h"

#include <chrono>
#include <fstream>
#include <thread>

#include "runtime/error.h"
#include "service_database.h"

namespace catalogador::services {
namespace {

class Opening : public testing::Test {
  protected:
    /// Puts a program in the place of the desktop's that writes down what it is to open.
    void installOpener() {
        const auto program = folder_.path() / "xdg-open";
        std::ofstream(program) << "#!/bin/sh\nprintf '%s|' \"$@\" > '" << log().string()
                               << ".new'\nmv '" << log().string() << ".new' '" << log().string()
                               << "'\n";
        std::filesystem::permissions(program, std::filesystem::perms::owner_all);
    }

    std::string create(const std::string& name) {
        const auto path = folder_.path() / name;
        std::ofstream(path) << "x";
        return path.string();
    }

    [[nodiscard]] std::filesystem::path log() const { return folder_.path() / "log"; }

    std::string opened() {
        for (int tries = 0; tries < 500 && !std::filesystem::exists(log()); ++tries)
            std::this_thread::sleep_for(std::chrono::milliseconds(10));
        std::string text;
        std::getline(std::ifstream(log()), text, '\0');
        return text;
    }

    test::TemporaryFolder folder_;
    test::EnvironmentChange path_{"PATH", (folder_.path().string() + ":/usr/bin:/bin").c_str()};
};

TEST_F(Opening, HandsThePathOverAsOneArgumentHoweverOdd) {
    installOpener();
    const std::string path = create("a b;$(touch x)'\"&.txt");
    openWithDesktop(path);
    EXPECT_EQ(opened(), path + "|");
}

TEST_F(Opening, DoesNotLetANamePassForAnOption) {
    installOpener();
    create("--help");
    const auto before = std::filesystem::current_path();
    std::filesystem::current_path(folder_.path());
    openWithDesktop("--help");
    std::filesystem::current_path(before);
    EXPECT_EQ(opened(), (folder_.path() / "--help").string() + "|");
}

TEST_F(Opening, RaisesForAFileThatIsNotThere) {
    installOpener();
    EXPECT_THROW(openWithDesktop((folder_.path() / "none").string()), RuntimeError);
}

TEST_F(Opening, RaisesWhereThereIsNoDesktop) {
    const test::EnvironmentChange path("PATH", folder_.path().c_str());
    EXPECT_THROW(openWithDesktop(create("a.txt")), RuntimeError);
}

}  // namespace
}  // namespace catalogador::services
