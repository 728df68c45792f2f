/* The least that reading a listing over ODBC can cost: blocks of rows into bound buffers, values
   thrown away. */
#include <sql.h>
#include <sqlext.h>
#include <stdio.h>
#include <stdlib.h>
#include <string.h>
#include <time.h>

enum { rowsPerBlock = 256, mostColumns = 64, widest = 256 };

static char* buffers[mostColumns];
static SQLLEN indicators[mostColumns][rowsPerBlock];
static SQLUSMALLINT status[rowsPerBlock];
static SQLHDBC connection;

static double secondsOn(clockid_t clock) {
    struct timespec time;
    clock_gettime(clock, &time);
    return (double)time.tv_sec + (double)time.tv_nsec * 1e-9;
}

static double now(void) {
    return secondsOn(CLOCK_MONOTONIC);
}

static void check(SQLRETURN result, SQLSMALLINT kind, SQLHANDLE handle) {
    SQLCHAR state[6] = "", text[512] = "";
    if (SQL_SUCCEEDED(result) || result == SQL_NO_DATA) return;
    SQLGetDiagRec(kind, handle, 1, state, NULL, text, sizeof text, NULL);
    fprintf(stderr, "bare_odbc: %s %s\n", state, text);
    exit(1);
}

static SQLHSTMT newStatement(void) {
    SQLHSTMT statement;
    check(SQLAllocHandle(SQL_HANDLE_STMT, connection, &statement), SQL_HANDLE_DBC, connection);
    return statement;
}

static void execute(SQLHSTMT statement, const char* sql) {
    check(SQLExecDirect(statement, (SQLCHAR*)sql, SQL_NTS), SQL_HANDLE_STMT, statement);
}

static long readAll(const char* sql) {
    SQLHSTMT statement = newStatement();
    SQLULEN fetched = 0;
    SQLSMALLINT columns = 0;
    long rows = 0;
    SQLSetStmtAttr(statement, SQL_ATTR_ROW_ARRAY_SIZE, (SQLPOINTER)(size_t)rowsPerBlock, 0);
    SQLSetStmtAttr(statement, SQL_ATTR_ROWS_FETCHED_PTR, &fetched, 0);
    SQLSetStmtAttr(statement, SQL_ATTR_ROW_STATUS_PTR, status, 0);
    execute(statement, sql);
    SQLNumResultCols(statement, &columns);
    for (SQLSMALLINT i = 0; i < columns && i < mostColumns; ++i) {
        if (buffers[i] == NULL) buffers[i] = malloc((size_t)rowsPerBlock * widest);
        SQLBindCol(statement, (SQLUSMALLINT)(i + 1), SQL_C_CHAR, buffers[i], widest, indicators[i]);
    }
    for (;;) {
        SQLRETURN result = SQLFetchScroll(statement, SQL_FETCH_NEXT, 0);
        check(result, SQL_HANDLE_STMT, statement);
        if (result == SQL_NO_DATA) break;
        rows += (long)fetched;
    }
    SQLFreeHandle(SQL_HANDLE_STMT, statement);
    return rows;
}

static void load(const char* sql, int rounds) {
    for (int round = 0; round < rounds; ++round) {
        const double start = now(), busy = secondsOn(CLOCK_PROCESS_CPUTIME_ID);
        const long rows = readAll(sql);
        printf("bare_load %.9g\n", now() - start);
        printf("bare_load_processor %.9g\n", secondsOn(CLOCK_PROCESS_CPUTIME_ID) - busy);
        if (round == 0) printf("bare_rows %ld\n", rows);
    }
}

/* What saving a record needs: read it, write it, read the list again. */
static void save(const char* list, const char* view, int rounds) {
    char select[256], update[256];
    snprintf(select, sizeof select,
             "Select * From genCodigoTexto Where CTeIDTipoVista = %s And CTeCodigo = 2", view);
    for (int round = 0; round < rounds; ++round) {
        snprintf(update, sizeof update,
                 "Update genCodigoTexto Set CTeTextoLargo = 'Cambio b%d' "
                 "Where CTeIDTipoVista = %s And CTeCodigo = 2",
                 round, view);
        const double start = now();
        readAll(select);
        SQLHSTMT statement = newStatement();
        execute(statement, update);
        SQLFreeHandle(SQL_HANDLE_STMT, statement);
        readAll(list);
        printf("bare_save %.9g\n", now() - start);
    }
}

int main(int argc, char** argv) {
    SQLHENV environment;
    if (argc != 6) {
        fprintf(stderr, "usage: bare_odbc load|save CONNECTION SQL VIEW ROUNDS\n");
        return 2;
    }
    SQLAllocHandle(SQL_HANDLE_ENV, SQL_NULL_HANDLE, &environment);
    SQLSetEnvAttr(environment, SQL_ATTR_ODBC_VERSION, (SQLPOINTER)(size_t)SQL_OV_ODBC3, 0);
    SQLAllocHandle(SQL_HANDLE_DBC, environment, &connection);
    check(SQLDriverConnect(connection, NULL, (SQLCHAR*)argv[2], SQL_NTS, NULL, 0, NULL,
                           SQL_DRIVER_NOPROMPT),
          SQL_HANDLE_DBC, connection);
    if (strcmp(argv[1], "load") == 0)
        load(argv[3], atoi(argv[5]));
    else
        save(argv[3], argv[4], atoi(argv[5]));
    SQLDisconnect(connection);
    return 0;
}
