#include "../sql/dialects.h"
#include "database.h"
#include "runtime/convert.h"
#include "runtime/text.h"

namespace catalogador {
using test::errorNumberOf;

namespace {

class Transactions : public test::RdoTest {
  protected:
    [[nodiscard]] rdoSession& session() {
        return *static_cast<rdoConnection&>(*connection).session();
    }
    static RuntimeError conflict() {
        return {error_number::statementFailed, "others were first", ErrorCause::conflict};
    }
};
INSTANTIATE_TEST_SUITE_P(, Transactions, testing::ValuesIn(test::databaseKinds()), test::kindName);

TEST_P(Transactions, AreDoneAgainWhenOthersWereGivenPrecedence) {
    create("Code INTEGER");
    int tries = 0;
    inTransaction(session(), [&] {
        connection->run("INSERT INTO " + table + " VALUES (1)");
        if (++tries < 4) throw conflict();
    });
    EXPECT_EQ(tries, 4);
    EXPECT_EQ(all().size(), 1U) << "what was undone is not there";
    EXPECT_FALSE(session().inTransaction());
}

TEST_P(Transactions, EndAfterAFewTries) {
    create("Code INTEGER");
    int tries = 0;
    EXPECT_EQ(errorNumberOf([&] {
                  inTransaction(session(), [&] {
                      ++tries;
                      throw conflict();
                  });
              }),
              error_number::statementFailed);
    EXPECT_GT(tries, 3);
    EXPECT_LT(tries, 30);
}

TEST_P(Transactions, AreNotDoneAgainForOtherErrorsNorWithinAnother) {
    create("Code INTEGER");
    int tries = 0;
    const auto failing = [&](const RuntimeError& error) {
        (void)errorNumberOf([&] {
            inTransaction(session(), [&] {
                ++tries;
                throw error;
            });
        });
    };
    failing(RuntimeError(error_number::statementFailed, "no"));
    EXPECT_EQ(tries, 1);
    connection->begin();
    failing(conflict());
    EXPECT_EQ(tries, 2);
    connection->rollback();
}

TEST_P(Transactions, AreUndoneAsAWholeWhenTheCommitIsRefused) {
    if (dialect() != dialects::postgresql) GTEST_SKIP() << "checks nothing at the commit";
    create("Code INTEGER UNIQUE DEFERRABLE INITIALLY DEFERRED", {"1"});
    try {
        inTransaction(session(), [&] { connection->run("INSERT INTO " + table + " VALUES (1)"); });
        ADD_FAILURE() << "the code stands twice";
    } catch (const RuntimeError& error) {
        EXPECT_NE(error.cause(), ErrorCause::outcomeUnknown) << error.description();
    }
    EXPECT_FALSE(session().inTransaction());
    connection->run("INSERT INTO " + table + " VALUES (2)");
    EXPECT_EQ(all().size(), 2U) << "every statement is committed by itself again";
}

TEST_P(Transactions, TellWhyTheyWereRefused) {
    create("Code INTEGER", {"1"});
    const auto causeOf = [&](const std::function<void()>& action) {
        try {
            action();
        } catch (const RuntimeError& error) {
            return error.cause();
        }
        return ErrorCause::unknown;
    };
    const auto impatient = connect(
        {std::chrono::seconds(5), std::chrono::seconds(10), std::chrono::milliseconds(200)});
    other->begin();
    other->run("UPDATE " + table + " SET Code = 2");
    EXPECT_EQ(causeOf([&] { impatient->run("UPDATE " + table + " SET Code = 3"); }),
              ErrorCause::locked);
    other->rollback();
}

}  // namespace
}  // namespace catalogador
