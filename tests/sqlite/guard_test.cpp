#include "adapters/sqlite/guard.h"

#include <gtest/gtest.h>

#include <filesystem>

#include "adapters/sqlite/connection.h"
#include "platform/rdo_plan.h"
#include "temporary_file.h"

namespace catalogador::sqlite {
namespace {

using test::errorNumberOf;
using test::errorOf;
using test::TemporaryFile;

/// A screen's connection, to which hostile texts come as statements: whatever they are made of,
/// nothing is known of data here.
class Guard : public testing::Test {
  protected:
    void SetUp() override {
        const auto maker = Connection::open(file_.path(), {}, Opening::created);
        maker->Execute("Create Table t (a INTEGER, b TEXT)");
        maker->Execute("Insert Into t Values (1, 'x')");
        maker->Execute("Create Index i On t (b)");
        maker->Execute("Create Table canary (a INTEGER)");
        maker->Execute("Insert Into canary Values (7)");
        connection_ = Connection::open(file_.path());
    }
    /// Everything is as SetUp left it.
    void TearDown() override {
        const auto other = Connection::open(file_.path(), {}, Opening::unguarded);
        EXPECT_EQ(other->session()->query("Select a From canary").at(0).at(0), Variant(7));
        EXPECT_EQ(other->session()->query("Select Count(*) From sqlite_master").at(0).at(0),
                  Variant(3));
        EXPECT_FALSE(std::filesystem::exists(target_.path()));
    }
    [[nodiscard]] std::string openError(const std::string& sql) const {
        return errorOf([&] { connection_->OpenResultset(sql); });
    }
    [[nodiscard]] std::string executeError(const std::string& sql) const {
        return errorOf([&] { connection_->Execute(sql); });
    }
    /// A check with a field's text in it, as the form builds it.
    static std::string check(const std::string& typed) {
        return "Select b From t Where b = '" + typed + "' And a <> 1";
    }

    TemporaryFile file_;
    TemporaryFile target_{"target.txt"};
    std::unique_ptr<Connection> connection_;
};

TEST_F(Guard, AFunctionThatWritesFilesIsNotRun) {
    for (const char* function : {"blob_export(x'41', '", "writefile('"}) {
        const std::string call = function + target_.path() + "')";
        EXPECT_NE(openError(check("' Or " + call + "--")), "") << call;
        EXPECT_NE(executeError("Update t Set b = " + call), "") << call;
    }
}

TEST_F(Guard, NoCodeIsLoaded) {
    for (const char* call : {"load_extension('x')", "load_extension('x', 'y')",
                             "fts3_tokenizer('simple', x'0102030405060708')"}) {
        EXPECT_NE(openError(check(std::string("' Or ") + call + "--")), "") << call;
        EXPECT_NE(executeError(std::string("Update t Set b = ") + call), "") << call;
    }
    EXPECT_NE(openError("Select load_extension('x')").find("load_extension"), std::string::npos);
}

TEST_F(Guard, WhatIsOpenedOnlyReads) {
    for (const char* sql :
         {"Delete From canary", "Insert Into canary Values (8)", "Update canary Set a = 9",
          "Delete From canary Returning a", "Replace Into canary Values (8)",
          "With x As (Select 1) Delete From canary", "Explain Delete From canary"})
        EXPECT_NE(openError(sql), "") << sql;
    // In a transaction too, in which the program itself writes.
    connection_->session()->begin();
    EXPECT_NE(openError("Delete From canary"), "");
    connection_->session()->rollback();
}

TEST_F(Guard, AServiceWritesInTransactionsOnly) {
    const std::string sql = "Update t Set b = 'y' Returning b";
    EXPECT_NE(errorOf([&] { connection_->session()->query(sql); }), "");
    rdoTransaction transaction(*connection_->session());
    EXPECT_EQ(connection_->session()->query(sql).at(0).at(0), Variant("y"));
    transaction.commit();
}

TEST_F(Guard, NothingButRowsIsWritten) {
    const std::string file = target_.path();
    for (const std::string& sql : std::vector<std::string>{
             "Attach '" + file + "' As x",
             "Detach main",
             "Vacuum",
             "Vacuum Into '" + file + "'",
             "Pragma writable_schema = 1",
             "Pragma journal_mode = wal",
             "Pragma user_version = 3",
             "Pragma query_only = 0",
             "Pragma temp_store_directory = '/'",
             "Create Table u (a)",
             "Create Temp Table u (a)",
             "Create View u As Select 1",
             "Create Index u On t (a)",
             "Create Trigger u After Insert On t Begin Delete From canary; End",
             "Create Virtual Table u Using fts5(a)",
             "Drop Table canary",
             "Alter Table canary Rename To u",
             "Reindex",
             "Analyze",
             "Begin",
             "Commit",
             "Savepoint u",
             "Delete From sqlite_master",
             "Insert Into sqlite_master Values ('table','u','u',0,'Create Table u (a)')",
             "Update sqlite_master Set sql = ''"}) {
        EXPECT_NE(openError(sql), "") << sql;
        EXPECT_NE(executeError(sql), "") << sql;
        EXPECT_NE(errorOf([&] { connection_->session()->query(sql); }), "") << sql;
    }
    EXPECT_NE(openError("Select * From pragma_table_info('t')"), "");
    EXPECT_NE(openError("Select * From pragma_journal_mode"), "");
}

TEST_F(Guard, WhoeverLooksAtAFileIsToldOfItsColumnsAndKeysAndWritesNothing) {
    rdoSession& session = *connection_->session();
    {
        auto& planner = dynamic_cast<rdoPlanner&>(session);
        const rdoReading reading(session, planner);
        EXPECT_EQ(session.query("Select name From pragma_table_info('t')").size(), 2U);
        EXPECT_EQ(session
                      .query("Select l.name, i.name From pragma_index_list('t') l "
                             "Join pragma_index_info(l.name) i")
                      .size(),
                  1U);
        for (const char* sql :
             {"Update sqlite_master Set sql = ''", "Delete From sqlite_master",
              "Delete From canary", "Update canary Set a = 9", "Drop Table canary",
              "Create Table u (a)", "Create Temp Table u (a)", "Create View u As Select 1",
              "Create Virtual Table u Using fts5(a)", "Alter Table canary Rename To u",
              "Pragma query_only = 0", "Pragma writable_schema = 1",
              "Select * From pragma_journal_mode", "Select * From pragma_user_version"}) {
            EXPECT_NE(errorOf([&] { session.query(sql); }), "") << sql;
            EXPECT_NE(executeError(sql), "") << sql;
        }
    }
    // What is known of the tables by now is told to nobody else.
    EXPECT_NE(openError("Select * From pragma_table_info('t')"), "");
    EXPECT_NE(errorOf([&] { session.query("Update sqlite_master Set sql = ''"); }), "");
}

TEST_F(Guard, NothingIsWrittenThroughWhatTheSchemaHolds) {
    const auto maker = Connection::open(file_.path(), {}, Opening::unguarded);
    maker->Execute("Create View loads As Select load_extension('x') As a");
    EXPECT_NE(openError("Select * From loads"), "");
    maker->Execute("Drop View loads");
}

TEST_F(Guard, ATextWithASecondStatementIsRefused) {
    for (const char* typed : {"'; Delete From canary --", "' --\rx\n; Delete From canary --",
                              "'/*'*/; Delete From canary --", "\";\"'; Delete From canary--"}) {
        EXPECT_EQ(errorNumberOf([&] { connection_->OpenResultset(check(typed)); }),
                  error_number::statementFailed)
            << typed;
        EXPECT_NE(executeError("Update t Set b = '" + std::string(typed)), "") << typed;
    }
}

TEST_F(Guard, ANulIsRefusedInStatementsAndInTexts) {
    using namespace std::string_literals;
    EXPECT_NE(openError("Select 1\0; Delete From canary"s).find("NUL"), std::string::npos);
    EXPECT_NE(openError(check("x\0y"s)).find("NUL"), std::string::npos);
    const auto rows = connection_->OpenResultset("Select * From t");
    rows->Edit();
    rows->setValue("b", "x\0y"s);
    EXPECT_NE(errorOf([&] { rows->Update(); }).find("NUL"), std::string::npos);
    EXPECT_NE(openError(check("?")), "no error") << "a question mark in a text is a character";
    EXPECT_NE(openError("Select * From t Where a = ?"), "") << "a place without a value";
}

TEST_F(Guard, ReadsAndWritesRowsAsAScreenDoes) {
    auto rows = connection_->OpenResultset("Select Upper(b) || hex(a) As c, a, b From t");
    EXPECT_EQ(rows->value("c"), Variant("X31"));
    rows->Edit();
    rows->setValue("b", "y");
    rows->Update();
    rows->AddNew();
    rows->setValue("a", 2);
    rows->Update();
    EXPECT_EQ(connection_->Execute("Update t Set b = 'z' Where a = 2"), 1);
    rows = connection_->OpenResultset("Select * From t Order By a Desc");
    EXPECT_EQ(rows->value("b"), Variant("z"));
    rows->Delete();
    EXPECT_EQ(connection_->Execute("Insert Into t Values (3, 'w')"), 1);
    EXPECT_EQ(connection_->Execute("Delete From t"), 2);
}

TEST_F(Guard, AConnectionOfAnotherDeskIsFree) {
    const auto other = Connection::open(file_.path(), {}, Opening::unguarded);
    other->Execute("Create Table u (a INTEGER)");
    other->Execute("Begin");
    other->Execute("Insert Into u Values (1)");
    other->Execute("Commit");
    EXPECT_EQ(other->OpenResultset("Pragma user_version")->value(0), Variant(0));
    // The guarded connection notices the changed schema, and stays guarded.
    EXPECT_EQ(connection_->OpenResultset("Select a From u")->value(0), Variant(1));
    EXPECT_NE(openError("Delete From u"), "");
    other->Execute("Drop Table u");
}

}  // namespace
}  // namespace catalogador::sqlite
