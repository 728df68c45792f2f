#include <gtest/gtest.h>
#include <unistd.h>

#include <fstream>

#include "adapters/sqlite/connection.h"
#include "temporary_file.h"

namespace catalogador::sqlite {
namespace {

using test::errorNumberOf;
using test::errorOf;
using test::TemporaryFile;

void makeDatabase(const std::string& path) {
    Connection::open(path, {}, Opening::created)->Execute("Create Table t (a INTEGER)");
}

TEST(OpeningAFile, OpensNoneThatIsMissingAndMakesNone) {
    const TemporaryFile file;
    EXPECT_NE(errorOf([&] { Connection::open(file.path()); }).find("unable to open"),
              std::string::npos);
    EXPECT_NE(errorOf([&] { Connection::open(file.path(), {}, Opening::unguarded); }), "");
    EXPECT_FALSE(std::filesystem::exists(file.path()));
}

TEST(OpeningAFile, OpensNoFolder) {
    const TemporaryFile file;
    std::filesystem::create_directory(file.path());
    EXPECT_NE(errorOf([&] { Connection::open(file.path()); }), "");
}

TEST(OpeningAFile, TellsThatItIsNoDatabase) {
    const TemporaryFile file;
    for (const std::string& content :
         {std::string("Este no es un archivo de datos, sino una carta. ") + std::string(5000, 'x'),
          std::string(8192, '\xe7'), "SQLite format 3" + std::string(4096, '\1')}) {
        std::ofstream(file.path(), std::ios::binary) << content;
        EXPECT_NE(errorOf([&] { Connection::open(file.path()); }).find("not a database"),
                  std::string::npos);
    }
}

TEST(OpeningAFile, TakesAPathForNothingElseThanAPath) {
    const TemporaryFile folder("sub");
    std::filesystem::create_directory(folder.path());
    const auto before = std::filesystem::current_path();
    std::filesystem::current_path(folder.path());
    for (const char* name :
         {"file:a.db?mode=memory", ":memory:", "file::memory:", "-a.db", "a?b#c%d"}) {
        makeDatabase(name);
        EXPECT_TRUE(std::filesystem::exists(std::filesystem::path(folder.path()) / name)) << name;
        EXPECT_EQ(errorOf([&] { Connection::open(name)->OpenResultset("Select a From t"); }), "");
    }
    std::filesystem::current_path(before);
    using namespace std::string_literals;
    for (const std::string& name : {""s, "a\0b"s})
        EXPECT_EQ(errorNumberOf([&] { Connection::open(name); }),
                  error_number::invalidProcedureCall);
}

TEST(OpeningAFile, ReadsOneThatMayNotBeWritten) {
    const TemporaryFile file;
    makeDatabase(file.path());
    // Root may write any file; one without a place for the journal stays unwritable for all.
    if (geteuid() == 0) GTEST_SKIP() << "root may write every file";
    std::filesystem::permissions(file.path(), std::filesystem::perms::owner_read);
    const auto connection = Connection::open(file.path());
    EXPECT_TRUE(connection->OpenResultset("Select a From t")->atEnd());
    EXPECT_NE(errorOf([&] { connection->Execute("Insert Into t Values (1)"); }).find("readonly"),
              std::string::npos);
}

TEST(OpeningAFile, SyncsAndKeepsForeignKeysAsTheDriverDoes) {
    const TemporaryFile file;
    makeDatabase(file.path());
    const auto connection = Connection::open(file.path(), {}, Opening::unguarded);
    const auto setting = [&](const char* pragma) {
        return connection->OpenResultset(std::string("Pragma ") + pragma)->value(0);
    };
    EXPECT_EQ(setting("synchronous"), Variant(1));
    EXPECT_EQ(setting("foreign_keys"), Variant(1));
    EXPECT_EQ(setting("journal_mode"), Variant("delete"));
}

}  // namespace
}  // namespace catalogador::sqlite
