#include "adapters/odbc/connection_string.h"

#include <gtest/gtest.h>

namespace catalogador {
namespace {

TEST(WithoutPasswords, HidesEveryPassword) {
    EXPECT_EQ(withoutPasswords("no access for ana (secret)", "UID=ana;PWD=secret"),
              "no access for ana (***)");
    EXPECT_EQ(withoutPasswords("bad: se;c}ret", "password = {se;c}}ret};UID=ana"), "bad: ***");
    EXPECT_EQ(withoutPasswords("bad: se;c}}ret", "PWD={se;c}}ret}"), "bad: ***");
}

TEST(WithoutPasswords, LeavesTextWithoutPassword) {
    EXPECT_EQ(withoutPasswords("ana is unknown", "UID=ana;PWD="), "ana is unknown");
    EXPECT_EQ(withoutPasswords("ana is unknown", "nonsense"), "ana is unknown");
    EXPECT_EQ(withoutPasswords("ana is unknown", "PWD={open"), "ana is unknown");
}

}  // namespace
}  // namespace catalogador
