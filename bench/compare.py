"""Runs the measures of bench/compare and prints the table; see docs/performance.md."""
import argparse
import os
import re
import statistics
import subprocess
import tempfile

import listings

PROGRAMS = os.path.join(os.path.dirname(os.path.dirname(os.path.abspath(__file__))), "build", "bench")


def run(program, *words):
    """The measures that a program prints, by name."""
    result = subprocess.run([os.path.join(PROGRAMS, program), *map(str, words)],
                            check=True, capture_output=True, text=True)
    found = {}
    for line in result.stdout.splitlines():
        name, value = line.split()
        found.setdefault(name, []).append(float(value))
    return found


class Measures:
    """What was measured of one database, by name, over all rounds."""

    def __init__(self, database, rows):
        self.database, self.rows, self.values = database, rows, {}

    def add(self, found, drop_first=False):
        for name, values in found.items():
            kept = values[1:] if drop_first and len(values) > 1 else values
            self.values.setdefault(name, []).extend(kept)

    def median(self, name):
        return statistics.median(self.values[name]) if name in self.values else None


class Table:
    def __init__(self):
        self.lines = []

    def ratio(self, what, measures, ours, yardstick, target, worst=True, unit="ms"):
        """A line with our median, the yardstick's and their ratio."""
        mine, other = measures.median(ours), measures.median(yardstick)
        if mine is None or other is None:
            return
        ratio = mine / other
        met = ratio <= target if worst else 1 / ratio >= target
        shown = f"{ratio:.2f}" if worst else f"1/{1 / ratio:.1f}"
        wanted = f"≤ {target:g}" if worst else f"≤ 1/{target:g}"
        scale = 1e3 if unit == "ms" else 1e-6
        self.add(what, measures, f"{mine * scale:.2f} {unit}", f"{other * scale:.2f} {unit}", shown, wanted, met)

    def limit(self, what, measures, ours, target):
        mine = measures.median(ours)
        if mine is not None:
            self.add(what, measures, f"{mine * 1e3:.2f} ms", "", "", f"≤ {target * 1e3:g} ms", mine <= target)

    def report(self, what, measures, value):
        self.add(what, measures, value, "", "", "reported", None)

    def add(self, what, measures, mine, other, ratio, target, met):
        mark = {True: "yes", False: "NO", None: ""}[met]
        self.lines.append((what, measures.database, f"{measures.rows:,}", mine, other, ratio, target, mark))

    def print(self):
        print("| work | database | rows | screen | yardstick | ratio | target | met |")
        print("|---|---|---:|---:|---:|---:|---:|---|")
        for line in self.lines:
            print("| " + " | ".join(line) + " |")


def connection_of_file(path):
    return f"Driver={{SQLite3}};Database={path}"


def measure_load(measures, connection, rounds, table):
    view, sql = listings.VIEW, listings.LISTING
    inner = 2 if measures.rows >= 1_000_000 else 4
    for _ in range(rounds):
        measures.add(run("bare_odbc", "load", connection, sql, view, inner), drop_first=True)
        measures.add(run("bench_screen", "load", connection, view, inner))
        # The model asks the driver anew for every row it reads: more rows tell nothing else.
        if measures.rows <= 100_000 and os.path.exists(os.path.join(PROGRAMS, "qt_models")):
            measures.add(run("qt_models", "load", connection, sql, 2), drop_first=True)
    table.ratio("load", measures, "load", "bare_load", 1.3)
    table.ratio("load, processor time of the program", measures, "load_processor", "bare_load_processor", 1.3)
    table.ratio("load, beside Qt's model with every cell read", measures, "load", "qt_read", 1)
    table.ratio("load, beside Qt's model that only counted its rows", measures, "load", "qt_load", 1)
    table.ratio("memory after it, beside the texts", measures, "held_bytes", "text_bytes", 1.5, unit="MB")


def measure_work(measures, connection, rounds, table):
    view, sql = listings.VIEW, listings.LISTING
    for _ in range(rounds):
        for what in ("filter", "sort", "find"):
            measures.add(run("bench_screen", what, connection, view, 3))
    if os.path.exists(os.path.join(PROGRAMS, "qt_models")):
        measures.add(run("qt_models", "filter", connection, sql, 2))
    for hits in ("none", "few", "many", "most"):
        table.ratio(f"filter, {hits} of the rows", measures, f"filter_{hits}", f"memmem_{hits}", 2)
        table.limit(f"filter, {hits} of the rows", measures, f"filter_{hits}", 0.05)
    for hits in ("none", "few"):
        table.ratio(f"filter, beside Qt's proxy, {hits}", measures, f"filter_{hits}", f"qt_filter_{hits}", 10, worst=False)
    table.ratio("filter with a set and a ?", measures, "wildcard_few", "filter_few", 5)
    table.ratio("filter with * inside", measures, "wildcard_run", "filter_few", 5)
    table.ratio("sort by a text", measures, "sort_text", "std_sort_text", 4)
    table.ratio("sort by a number", measures, "sort_number", "std_sort_number", 4)
    table.ratio("sort by a date", measures, "sort_date", "std_sort_text", 4)
    table.limit("find a code", measures, "find_code", 0.005)
    table.limit("position on a code", measures, "position", 0.005)


def measure_save(measures, connection, rounds, table):
    for _ in range(rounds):
        measures.add(run("bare_odbc", "save", connection, listings.LISTING, listings.VIEW, 4), drop_first=True)
        measures.add(run("bench_screen", "save", connection, listings.VIEW, 3))
    table.ratio("save a record and read the list again", measures, "save", "bare_save", 1.5)


def measure_open(measures, connection, rounds, table):
    for _ in range(3 * rounds):
        measures.add(run("bench_window", "empty", connection, listings.VIEW, 1))
        measures.add(run("bench_window", "open", connection, listings.VIEW, 1))
    table.ratio("open to the painted window, beside an empty one", measures, "open_window", "empty_window", 3)


def measure_input(measures, connection, rounds, table):
    measures.add(run("bench_window", "keys", connection, listings.VIEW, 50 * rounds))
    table.limit("a key in the list", measures, "key", 0.016)
    measures.add(run("bench_window", "combo", connection, listings.COMBO_VIEW, 3 * rounds))
    table.limit("open a combo of 50,000 entries", measures, "list_50000", 0.05)
    table.ratio("edit a record with a combo of 50,000 entries, beside one of 10", measures, "edit_50000", "edit_10", 1.5)


def measure_paint(measures, small, connection, rounds, table):
    measures.add(run("bench_window", "paint", connection, listings.VIEW, 5 * rounds))
    for name in ("paint", "paint_filtered_sorted"):
        for place in ("first", "middle", "last"):
            measures.values[f"small_{name}_{place}"] = small.values.get(f"{name}_{place}", [])
            label = f"paint the {place} page" + (", filtered and sorted" if name != "paint" else "")
            table.limit(label, measures, f"{name}_{place}", 0.016)


def instructions(program, *words, inside=None):
    """Instructions of a program, or inside a function; they do not depend on what else the machine does."""
    with tempfile.NamedTemporaryFile() as out:
        only = [f"--toggle-collect={inside}"] if inside else []
        result = subprocess.run(
            ["valgrind", "--tool=callgrind", f"--callgrind-out-file={out.name}", *only,
             os.path.join(PROGRAMS, program), *map(str, words)],
            capture_output=True, text=True)
    counted = re.search(r"Collected : (\d+)", result.stderr)
    return int(counted.group(1)) if counted else 0


def count_instructions(measures, connection, table):
    view, sql, rows = listings.VIEW, listings.LISTING, measures.rows

    def each(program, *words):
        # Two rounds more than one: what the program does besides is the same.
        return (instructions(program, *words, 3) - instructions(program, *words, 1)) / 2 / rows
    bare = each("bare_odbc", "load", connection, sql, view)
    load = each("bench_screen", "load", connection, view)
    table.add("instructions a row: load", measures, f"{load:,.0f}", f"{bare:,.0f}", f"{load / bare:.2f}", "reported", None)
    for what, function, calls in (("filter", "catalogador::RecordGrid::filter*", 6), ("sort", "catalogador::RecordGrid::sort*", 4)):
        count = instructions("bench_screen", what, connection, view, 1, inside=function) / calls / rows
        table.report(f"instructions a row: {what}, on average", measures, f"{count:,.0f}")


def report_shape(name, path, rows, rounds, table):
    measures = Measures("SQLite", rows)
    connection = connection_of_file(path)
    measures.add(run("bench_screen", "load", connection, listings.VIEW, rounds + 1))
    measures.add(run("bench_window", "paint", connection, listings.VIEW, rounds + 2))
    held, texts = measures.median("held_bytes"), measures.median("text_bytes")
    table.report(f"{name}: load", measures, f"{measures.median('load') * 1e3:.0f} ms")
    table.report(f"{name}: paint a page in the middle", measures, f"{measures.median('paint_middle') * 1e3:.1f} ms")
    table.report(f"{name}: memory", measures, f"{held / 1e6:.1f} MB for {texts / 1e6:.1f} MB of texts")


def schema(dialect):
    return subprocess.run([os.path.join(PROGRAMS, "catalogador"), "schema", "--dialect", dialect],
                          check=True, capture_output=True, text=True).stdout


def sqlite_file(folder, name, make):
    path = os.path.join(folder, name + ".db")
    if not os.path.exists(path):
        make(path, schema("sqlite"))
    return path


def postgresql_database(count):
    """A database of that many rows on the server that bench/compare started; its connection string."""
    server = os.environ["CATALOGADOR_TEST_POSTGRESQL"]
    port = re.search(r"Port=(\d+)", server).group(1)
    psql = ["psql", "-h", "127.0.0.1", "-p", port, "-U", "catalogador", "-d"]
    name = f"bench{count}"
    subprocess.run([*psql, "tests", "-q", "-c", f"Create Database {name}"], check=True)
    listings.postgresql([*psql, name], schema("postgresql"), count)
    return server.replace("Database=tests", f"Database={name}")


def measure_database(name, connect, options, table):
    small = None
    for rows in options.rows:
        measures = Measures(name, rows)
        connection = connect(rows)
        small = small or measures
        rounds = max(1, options.rounds if rows < 1_000_000 else options.rounds // 2 + 1)
        measure_load(measures, connection, rounds, table)
        if rows == 100_000 or options.smoke:
            measure_save(measures, connection, rounds, table)
        if name == "SQLite":
            measure_work(measures, connection, rounds, table)
            measure_paint(measures, small, connection, rounds, table)
            if rows <= 10_000:
                measure_open(measures, connection, rounds, table)
                measure_input(measures, connection, rounds, table)
            if rows == 100_000:
                count_instructions(measures, connection, table)
        yield measures


def main():
    parser = argparse.ArgumentParser()
    parser.add_argument("--rows", default="1000,10000,100000,1000000")
    parser.add_argument("--rounds", type=int, default=3)
    parser.add_argument("--keep")
    parser.add_argument("--smoke", action="store_true")
    options = parser.parse_args()
    options.rows = [1000] if options.smoke else [int(rows) for rows in options.rows.split(",")]
    options.rounds = 1 if options.smoke else options.rounds
    table = Table()
    with tempfile.TemporaryDirectory() as temporary:
        folder = options.keep or temporary
        os.makedirs(folder, exist_ok=True)

        def sqlite(rows):
            return connection_of_file(sqlite_file(
                folder, f"rows{rows}", lambda path, sql: listings.sqlite(path, sql, rows)))
        for _ in measure_database("SQLite", sqlite, options, table):
            pass
        if "CATALOGADOR_TEST_POSTGRESQL" in os.environ and not options.smoke:
            for _ in measure_database("PostgreSQL", postgresql_database, options, table):
                pass
        if not options.smoke:
            report_shape("60 columns", sqlite_file(folder, "wide", listings.sqlite_wide), 20_000, options.rounds, table)
            report_shape("texts of 10 kB", sqlite_file(folder, "long", listings.sqlite_long), 2_000, options.rounds, table)
    table.print()


main()
