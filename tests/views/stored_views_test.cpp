#include "adapters/views/stored_views.h"

#include <gtest/gtest.h>

#include "adapters/demo/demo.h"
#include "adapters/views/applying.h"
#include "adapters/views/file_reader.h"
#include "adapters/views/file_text.h"
#include "metadata_database.h"
#include "runtime/convert.h"

namespace catalogador::views {
namespace {

class StoredInDatabase : public testing::TestWithParam<std::string> {
  protected:
    void SetUp() override {
        kind_ = GetParam();
        kind_.front() = static_cast<char>(kind_.front() - 'A' + 'a');
    }
    std::string kind_;
};
INSTANTIATE_TEST_SUITE_P(, StoredInDatabase, testing::Values("Sqlite", "Postgresql", "Mariadb"),
                         [](const auto& given) { return given.param; });

StoredViews readFrom(rdoConnection& connection) {
    return readStored(connection, checks::SchemaFacts::of(checks::Database(connection)));
}

/// The text of the file of every view.
std::vector<std::string> filesOf(rdoConnection& connection) {
    std::vector<std::string> texts;
    for (const auto& [number, view] : readFrom(connection).views) texts.push_back(fileText(view));
    return texts;
}

std::vector<View> viewsOf(const std::vector<std::string>& texts) {
    std::vector<View> views;
    for (const std::string& text : texts) {
        std::vector<Problem> problems;
        auto view = readView(text, problems);
        EXPECT_TRUE(view.has_value()) << problems.front().text << "\n" << text;
        if (view) views.push_back(std::move(*view));
    }
    return views;
}

/// How many things were changed.
std::size_t applyTo(rdoConnection& connection, const std::vector<View>& views,
                    const ChangeOptions& options = {}) {
    std::size_t count = 0;
    const auto facts = checks::SchemaFacts::of(checks::Database(connection));
    inTransaction(*connection.session(), [&] {
        const auto stored = readStored(connection, facts);
        const auto changes = changesOf(stored, views, options);
        count = linesOf(changes, stored, options).size();
        applyChanges(connection, changes, stored, options);
    });
    return count;
}

/// Every value of the metadata, users by their names and sequences without their last code.
std::vector<std::string> dumpOf(rdoConnection& connection) {
    std::vector<std::string> lines;
    for (const char* sql :
         {"Select * From Catalogador Order By ABMIDFormVista",
          "Select * From CatalogadorControles Order By ACoIDFormVista, ACoKeyControl",
          "Select * From genForaneas Where ForTablaAControlar <> 'genCodigoTexto' Order By "
          "ForTablaAControlar, ForOrdenSQL",
          "Select NumNombre From genNumeradores Order By NumNombre",
          "Select UsuNombre, PerOpcion, PerEmpresa, PerDerechos From accPermisos Join accUsuarios "
          "On UsuID = PerUsuID Order By PerOpcion, UsuNombre, PerEmpresa"})
        for (const auto& row : connection.session()->query(sql)) {
            std::string line;
            for (const Variant& value : row)
                line += (value.isNull() ? "Null" : "'" + toText(value, Regional{}) + "'") + "|";
            lines.push_back(line);
        }
    return lines;
}

void expectSameAfterApplying(test::MetadataDatabase& full, test::MetadataDatabase& empty) {
    const auto files = filesOf(full.connection());
    applyTo(empty.connection(), viewsOf(files));
    EXPECT_EQ(filesOf(empty.connection()), files);
    EXPECT_EQ(dumpOf(empty.connection()), dumpOf(full.connection()));
    EXPECT_EQ(applyTo(empty.connection(), viewsOf(files)), 0U);
}

std::unique_ptr<test::MetadataDatabase> emptyTables(const std::string& kind) {
    auto database = test::MetadataDatabase::createEmpty(kind);
    if (database) database->run(schema::schemaStatementList(database->dialect()));
    return database;
}

TEST_P(StoredInDatabase, TheDemonstrationIsTheSameInAnotherDatabase) {
    const auto full = test::MetadataDatabase::createEmpty(kind_);
    const auto empty = emptyTables("sqlite");
    if (!full) GTEST_SKIP() << "There is no server";
    demo::DemoOptions options;
    options.userName = "ana";
    options.dialect = &full->dialect();
    demo::writeDemo(full->connection(), options);
    expectSameAfterApplying(*full, *empty);
}

TEST_P(StoredInDatabase, TheViewsOfTheTestsComeFromTheirFiles) {
    const auto full = test::MetadataDatabase::create("sqlite");
    const auto empty = emptyTables(kind_);
    if (!empty) GTEST_SKIP() << "There is no server";
    expectSameAfterApplying(*full, *empty);
}

TEST_P(StoredInDatabase, HostileTextsComeBackAsTheyWere) {
    const auto database = emptyTables(kind_);
    if (!database) GTEST_SKIP() << "There is no server";
    View view;
    view.view.resize(viewColumns().size());
    view.view[0] = 7;
    view.view[placeOf(viewColumns(), "ABMNombreVista")] = "it's \"7\" \\";
    view.view[placeOf(viewColumns(), "ABMConsulta")] =
        "Select '''', \"\"\" -- ' \\\n\r\n\t'''\n" + std::string(20'000, 'x') + "\xF0\x9F\x99\x82";
    view.view[placeOf(viewColumns(), "ABMAnchoForm")] = 7590.5;
    view.view[placeOf(viewColumns(), "ABMValidarAcceso")] = "it's|M|0";
    view.hasSequence = true;
    for (const char* key : {"TextoCorto", "textocorto", "Valor1", "it's ?; Drop"}) {
        Row field(fieldColumns().size());
        field[0] = key;
        field[1] = "'); Drop Table Catalogador; --";
        view.fields.push_back(field);
    }
    Row rule(ruleColumns().size());
    rule[1] = "[prmID] '' \\'";
    view.rules.push_back(rule);
    view.rights.push_back({Variant("o'neil \\"), Variant(-1), Variant()});
    putInOrder(view);
    applyTo(database->connection(), {view});
    const auto stored = readFrom(database->connection());
    ASSERT_NE(stored.view(7), nullptr);
    EXPECT_TRUE(stored.view(7)->describesTheSameAs(view)) << fileText(*stored.view(7));
}

TEST_P(StoredInDatabase, OnlyWhatDiffersIsChangedAndTheRestStays) {
    const auto database = test::MetadataDatabase::create(kind_);
    if (!database) GTEST_SKIP() << "There is no server";
    rdoConnection& connection = database->connection();
    // A column of the host's own.
    database->run("Alter Table CatalogadorControles Add Column HostNote VARCHAR(20) Null");
    database->run("Update CatalogadorControles Set HostNote = 'kept'");
    auto views = viewsOf(filesOf(connection));
    View& units = views.front();
    ASSERT_EQ(units.number(), 41);
    units.view[placeOf(viewColumns(), "ABMTitulo")] = "Measures";
    units.fields.front()[placeOf(fieldColumns(), "ACoLen")] = 9;
    units.fields.pop_back();
    units.rules.clear();
    units.rights.front()[2] = "M";
    EXPECT_EQ(applyTo(connection, views), 5U);
    EXPECT_TRUE(readFrom(connection).view(41)->describesTheSameAs(units));
    EXPECT_EQ(connection.session()->query(
                  "Select HostNote From CatalogadorControles Where ACoIDFormVista = 41 And "
                  "ACoKeyControl = 'TextoCorto'"),
              (std::vector<std::vector<Variant>>{{Variant("kept")}}));
    EXPECT_EQ(connection.session()
                  ->query("Select 1 From genForaneas Where ForTablaAControlar = 'genCodigoTexto'")
                  .size(),
              1U);
}

TEST_P(StoredInDatabase, WidthsThatUsersDraggedStayUnlessTheyAreAskedFor) {
    const auto database = test::MetadataDatabase::create(kind_);
    if (!database) GTEST_SKIP() << "There is no server";
    rdoConnection& connection = database->connection();
    auto views = viewsOf(filesOf(connection));
    database->run("Update Catalogador Set ABMColumnasAncho = '1|2|3|4' Where ABMIDFormVista = 41");
    const auto widths = [&] { return valueOf(*readFrom(connection).view(41), "ABMColumnasAncho"); };
    EXPECT_EQ(applyTo(connection, views), 0U);
    EXPECT_EQ(widths(), Variant("1|2|3|4"));
    EXPECT_EQ(applyTo(connection, views, {.widths = true}), 1U);
    EXPECT_EQ(widths(), Variant("1000|4000|1000|700"));
    // Widths of other columns are no widths of these.
    database->run(
        "Update Catalogador Set ABMColumnasAncho = '1|2', ABMColumnasNombre = 'a|b' "
        "Where ABMIDFormVista = 41");
    EXPECT_EQ(applyTo(connection, views), 2U);
    EXPECT_EQ(widths(), Variant("1000|4000|1000|700"));
}

TEST_P(StoredInDatabase, AViewWithAnotherNameGoesOnWithItsCodesAndTakesItsRules) {
    const auto database = test::MetadataDatabase::create(kind_);
    if (!database) GTEST_SKIP() << "There is no server";
    rdoConnection& connection = database->connection();
    auto views = viewsOf(filesOf(connection));
    views[1].view[placeOf(viewColumns(), "ABMNombreVista")] = "Colors";
    applyTo(connection, views);
    EXPECT_EQ(readFrom(connection).sequences, (std::map<std::string, std::optional<std::int64_t>>{
                                                  {"Colors", 7}, {"Shops", 2}, {"Units", 3}}));
    const auto rules = readFrom(connection).rules;
    EXPECT_EQ(rules.count("Colours"), 0U);
    EXPECT_EQ(rules.at("Colors").size(), 1U);
    EXPECT_EQ(applyTo(connection, views), 0U);
}

TEST_P(StoredInDatabase, ViewsWithoutAFileAreDeletedOnlyWhenThatIsAskedFor) {
    const auto database = test::MetadataDatabase::create(kind_);
    if (!database) GTEST_SKIP() << "There is no server";
    rdoConnection& connection = database->connection();
    auto views = viewsOf(filesOf(connection));
    views.pop_back();
    EXPECT_EQ(applyTo(connection, views), 0U);
    EXPECT_NE(readFrom(connection).view(43), nullptr);
    EXPECT_EQ(applyTo(connection, views, {.deleteMissing = true}), 1U);
    EXPECT_EQ(readFrom(connection).view(43), nullptr);
    // Records and their sequence stay for the day when the view comes back.
    EXPECT_EQ(readFrom(connection).highestCodes.at(43), 2);
    EXPECT_EQ(readFrom(connection).sequences.count("Shops"), 1U);
    EXPECT_TRUE(connection.session()
                    ->query("Select 1 From CatalogadorControles Where ACoIDFormVista = 43")
                    .empty());
}

TEST_P(StoredInDatabase, ASequenceThatIsBehindTheRecordsCatchesUp) {
    const auto database = test::MetadataDatabase::create(kind_);
    if (!database) GTEST_SKIP() << "There is no server";
    rdoConnection& connection = database->connection();
    const auto views = viewsOf(filesOf(connection));
    database->run("Update genNumeradores Set NumUltimo = 1 Where NumNombre = 'Units'");
    database->run("Delete From genNumeradores Where NumNombre = 'Shops'");
    EXPECT_EQ(applyTo(connection, views), 2U);
    EXPECT_EQ(readFrom(connection).sequences, (std::map<std::string, std::optional<std::int64_t>>{
                                                  {"Colours", 7}, {"Shops", 2}, {"Units", 3}}));
}

TEST(StoredViews, ThatNoFileCanSayAreRefused) {
    for (const char* change :
         {"Update Catalogador Set ABMTitulo = Cast(x'41FF' As Text) Where ABMIDFormVista = 41",
          "Update Catalogador Set ABMTitulo = 'a' || Char(0) || 'b' Where ABMIDFormVista = 41",
          "Update CatalogadorControles Set ACoLen = 'x' Where ACoIDFormVista = 41",
          "Update Catalogador Set ABMIDFormVista = 0 Where ABMIDFormVista = 41"}) {
        const auto database = test::MetadataDatabase::create("sqlite");
        database->run(change);
        EXPECT_THROW((void)readFrom(database->connection()), RuntimeError) << change;
    }
}

}  // namespace
}  // namespace catalogador::views
