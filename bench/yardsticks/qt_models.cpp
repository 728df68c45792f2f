// What an engineer would take instead: Qt's model of a query, and its proxy that filters.
#include <QAbstractTableModel>
#include <QCoreApplication>
#include <QElapsedTimer>
#include <QSortFilterProxyModel>
#include <QSqlDatabase>
#include <QSqlError>
#include <QSqlQuery>
#include <QSqlQueryModel>
#include <QSqlRecord>
#include <QStringList>
#include <cstdio>
#include <cstdlib>
#include <vector>

namespace {

double seconds(const QElapsedTimer& timer) {
    return static_cast<double>(timer.nsecsElapsed()) * 1e-9;
}

void load(const QString& sql, int rounds) {
    for (int round = 0; round < rounds; ++round) {
        QElapsedTimer timer;
        timer.start();
        QSqlQueryModel model;
        model.setQuery(sql);
        while (model.canFetchMore()) model.fetchMore();
        std::printf("qt_load %.9g\n", seconds(timer));
        // The model has only counted them until somebody asks for the values.
        qsizetype characters = 0;
        for (int row = 0; row < model.rowCount(); ++row)
            for (int column = 0; column < model.columnCount(); ++column)
                characters += model.data(model.index(row, column)).toString().size();
        std::printf("qt_read %.9g\n", seconds(timer));
        if (round == 0)
            std::printf("qt_rows %d\nqt_characters %lld\n", model.rowCount(),
                        static_cast<long long>(characters));
    }
}

/// The rows in memory, which serves the proxy faster than the query would.
class Rows : public QAbstractTableModel {
  public:
    explicit Rows(const QString& sql) {
        QSqlQuery query;
        query.setForwardOnly(true);
        if (!query.exec(sql)) {
            std::fprintf(stderr, "qt_models: %s\n", qPrintable(query.lastError().text()));
            std::exit(1);
        }
        columns_ = query.record().count() - 1;
        while (query.next())
            for (int column = 1; column <= columns_; ++column)
                cells_.push_back(query.value(column).toString());
    }
    int rowCount(const QModelIndex& parent = {}) const override {
        return parent.isValid() ? 0 : static_cast<int>(cells_.size()) / columns_;
    }
    int columnCount(const QModelIndex& parent = {}) const override {
        return parent.isValid() ? 0 : columns_;
    }
    QVariant data(const QModelIndex& index, int role) const override {
        if (role != Qt::DisplayRole) return {};
        return cells_[static_cast<std::size_t>(index.row()) * static_cast<std::size_t>(columns_) +
                      static_cast<std::size_t>(index.column())];
    }

  private:
    std::vector<QString> cells_;
    int columns_ = 1;
};

void filter(const QString& sql, int rounds) {
    Rows rows(sql);
    QSortFilterProxyModel proxy;
    proxy.setSourceModel(&rows);
    proxy.setFilterKeyColumn(-1);
    proxy.setFilterCaseSensitivity(Qt::CaseInsensitive);
    for (const auto& [name, text] : {std::pair("none", "xyzzy"), {"few", "martínez lópez"}}) {
        for (int round = 0; round < rounds; ++round) {
            proxy.setFilterFixedString({});
            (void)proxy.rowCount();
            QElapsedTimer timer;
            timer.start();
            proxy.setFilterFixedString(QString::fromUtf8(text));
            (void)proxy.rowCount();
            std::printf("qt_filter_%s %.9g\n", name, seconds(timer));
            if (round == 0) std::printf("qt_shown_%s %d\n", name, proxy.rowCount());
        }
    }
}

}  // namespace

int main(int argc, char** argv) {
    QCoreApplication application(argc, argv);
    if (argc != 5) {
        std::fprintf(stderr, "usage: qt_models load|filter CONNECTION SQL ROUNDS\n");
        return 2;
    }
    QSqlDatabase database = QSqlDatabase::addDatabase(QStringLiteral("QODBC"));
    database.setDatabaseName(QString::fromUtf8(argv[2]));
    if (!database.open()) {
        std::fprintf(stderr, "qt_models: %s\n", qPrintable(database.lastError().text()));
        return 1;
    }
    const QString sql = QString::fromUtf8(argv[3]);
    if (QString::fromUtf8(argv[1]) == QStringLiteral("load"))
        load(sql, std::atoi(argv[4]));
    else
        filter(sql, std::atoi(argv[4]));
    return 0;
}
