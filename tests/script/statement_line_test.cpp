#include "adapters/script/statement_line.h"

#include <gtest/gtest.h>

#include <filesystem>

#include "adapters/odbc/odbc_connection.h"

namespace catalogador::script {
namespace {

class StatementLine : public testing::Test {
  protected:
    void SetUp() override {
        file_ = std::filesystem::temp_directory_path() /
                (std::string("statement_line_") +
                 testing::UnitTest::GetInstance()->current_test_info()->name() + ".db");
        std::filesystem::remove(file_);
        ASSERT_FALSE(run("Create Table t (Codigo integer, Texto text)").contains("error"));
        run("Insert Into t Values (1, 'España'), (2, Null)");
    }
    void TearDown() override { std::filesystem::remove(file_); }

    Json run(const std::string& sql) {
        return runStatement(
            [&] {
                return odbc::OdbcConnection::open(
                    odbc::OdbcConnection::sqliteConnectionString(file_.string()));
            },
            sql);
    }

    std::filesystem::path file_;
};

TEST_F(StatementLine, AQueryGivesColumnsAndRows) {
    EXPECT_EQ(lineOf(run("  select Codigo, Texto From t Order By Codigo")),
              "{\"event\":\"sql\",\"columns\":[\"Codigo\",\"Texto\"],"
              "\"rows\":[[1,\"España\"],[2,null]],\"affected\":0}");
    EXPECT_EQ(run("With c As (Select 5 As Cinco) Select * From c")["rows"].size(), 1U);
}

TEST_F(StatementLine, AnyOtherStatementGivesTheRowsItTouched) {
    EXPECT_EQ(lineOf(run("Update t Set Texto = 'x'")),
              "{\"event\":\"sql\",\"columns\":[],\"rows\":[],\"affected\":2}");
}

TEST_F(StatementLine, WhatTheDatabaseRefusesIsTold) {
    const Json event = run("Select Nada From t");
    EXPECT_TRUE(event["error"].is_string());
    EXPECT_EQ(event["rows"].size(), 0U);
}

TEST_F(StatementLine, AConnectionThatFailsIsTold) {
    const Json event = runStatement(
        []() -> std::unique_ptr<rdoConnection> {
            return odbc::OdbcConnection::open("Driver={there is no such driver}");
        },
        "Select 1");
    EXPECT_TRUE(event["error"].is_string());
}

}  // namespace
}  // namespace catalogador::script
