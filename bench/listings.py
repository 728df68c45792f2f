"""The listings that are measured: rows that look like those of a real list, the same in every run."""
import random
import sqlite3
import subprocess

VIEW = 100
# A few records with a field that is chosen from a list.
COMBO_VIEW = 101
LISTING = (
    "Select CTeCodigo, CTeTextoCorto, CTeTextoLargo, CTeValor1, Modificado, CTeSiNo1"
    f" From genCodigoTexto Where CTeIDTipoVista = {VIEW}"
)
COLUMNS = "CTeIDTipoVista, CTeCodigo, CTeTextoCorto, CTeTextoLargo, CTeValor1, CTeSiNo1, Modificado"
NAMES = (
    "García Martínez López Rodríguez Pérez Gómez Díaz Núñez Ruiz Soto Blanco Castro Romero Sosa"
    " Molina Ortiz Silva Luna Ríos Acosta Medina Herrera Peña Vega Ramos Cruz Flores Suárez"
).split()
TRADES = (
    "Distribuidora Panadería Ferretería Transportes Librería Constructora Laboratorio Imprenta"
    " Farmacia Almacén Estudio Taller Servicios Frigorífico Bodega Maderera"
).split()


def rows(count):
    """Code, two texts, a number with two decimals, a day and a bit."""
    chance = random.Random(7)
    choice = chance.choice
    for code in range(1, count + 1):
        short = f"{choice(NAMES)} {choice(NAMES)}, {choice(TRADES)} {chance.randrange(100000)}"
        long = f"{choice(TRADES)} de {choice(NAMES)} {choice(NAMES)} y {choice(NAMES)}, sucursal {chance.randrange(1000)}"
        day = f"{chance.randrange(1990, 2026)}-{chance.randrange(1, 13):02}-{chance.randrange(1, 29):02} 00:00:00"
        yield VIEW, code, short, long, chance.randrange(10_000_000) / 100, chance.randrange(2), day


def wide_rows(columns):
    chance = random.Random(9)
    for code in range(1, 20_001):
        yield [code] + [f"{chance.choice(NAMES)} {chance.randrange(10**6)}" for _ in range(columns)]


def metadata(listing, headers):
    widths = "|".join(["2000"] * len(headers))
    view = (VIEW, "Medida", "Medida", listing, "|".join(headers), widths,
            "|".join(["1"] * len(headers)), 9000.0)
    fields = [(VIEW, "TextoCorto", "Texto", 100, 1, 0, 0, 1), (VIEW, "TextoLargo", "Nombre", 100, 0, 0, 0, 1)]
    return view, fields


STANDARD = metadata(LISTING, ["Texto", "Nombre", "Importe", "Fecha", "Activo"])
VIEW_COLUMNS = (
    "ABMIDFormVista, ABMTitulo, ABMNombreVista, ABMConsulta, ABMColumnasNombre, ABMColumnasAncho,"
    " ABMColumnasAlineacion, ABMAnchoForm"
)
FIELD_COLUMNS = (
    "ACoIDFormVista, ACoKeyControl, ACoCaption, ACoLen, ACoObligatorio, ACoDuplicado, ACoAccionF2, ACoTipo"
)


def sqlite(path, schema, count, listing=STANDARD):
    """A database file with that many records."""
    view, fields = listing
    with sqlite3.connect(path) as database:
        database.executescript("PRAGMA journal_mode=OFF; PRAGMA synchronous=OFF;")
        database.executescript(schema)
        database.execute(f"Insert Into Catalogador ({VIEW_COLUMNS}) Values (?,?,?,?,?,?,?,?)", view)
        database.executemany(
            f"Insert Into CatalogadorControles ({FIELD_COLUMNS}) Values (?,?,?,?,?,?,?,?)", fields)
        database.executemany(f"Insert Into genCodigoTexto ({COLUMNS}) Values (?,?,?,?,?,?,?)", rows(count))
        add_combo_view(database)
        database.commit()
        database.execute("PRAGMA journal_mode=DELETE")
    database.close()


def add_combo_view(database):
    listing = f"Select CTeCodigo, CTeTextoCorto From genCodigoTexto Where CTeIDTipoVista = {COMBO_VIEW}"
    view = (COMBO_VIEW, "Elegida", "Elegida", listing, "Texto", "4000", "1", 9000.0)
    database.execute(f"Insert Into Catalogador ({VIEW_COLUMNS}) Values (?,?,?,?,?,?,?,?)", view)
    database.execute(
        f"Insert Into CatalogadorControles ({FIELD_COLUMNS}, ACoDatosCombo) Values (?,?,?,?,?,?,?,?,?)",
        (COMBO_VIEW, "Valor1", "Elegido", 9, 0, 0, 0, 2, "1,uno"))
    database.executemany(f"Insert Into genCodigoTexto ({COLUMNS}) Values (?,?,?,?,?,?,?)", (
        (COMBO_VIEW, code, f"Texto {code}", None, 1, 0, None) for code in range(1, 11)))


def sqlite_wide(path, schema, columns=60):
    """A list of many columns."""
    names = [f"C{n}" for n in range(1, columns + 1)]
    sqlite(path, schema, 1, metadata("Select * From ancha", names))
    with sqlite3.connect(path) as database:
        database.execute(f"Create Table ancha (Codigo INTEGER, {', '.join(n + ' VARCHAR(60)' for n in names)})")
        database.executemany(f"Insert Into ancha Values ({','.join('?' * (columns + 1))})", wide_rows(columns))
    database.close()


def sqlite_long(path, schema, count=2_000, length=10_000):
    """A list of long texts."""
    sqlite(path, schema, 1, metadata("Select * From larga", ["Texto", "Nota"]))
    sentence = "Una nota larga que nadie lee hasta el final, número "
    with sqlite3.connect(path) as database:
        database.execute("Create Table larga (Codigo INTEGER, Texto VARCHAR(60), Nota TEXT)")
        database.executemany("Insert Into larga Values (?,?,?)", (
            (code, f"Nota {code}", (sentence + f"{code}. ") * (length // (len(sentence) + 6)))
            for code in range(1, count + 1)))
    database.close()


def quoted(value):
    return str(value) if isinstance(value, (int, float)) else "'" + str(value).replace("'", "''") + "'"


def postgresql(psql, schema, count):
    """Fills a database through `psql`, the words of a command line."""
    def run(sql, text=None):
        subprocess.run([*psql, "-q", "-v", "ON_ERROR_STOP=1", "-c", sql],
                       input=text, text=True, check=True, stdout=subprocess.DEVNULL)
    run(schema)
    view, fields = STANDARD
    run(f"Insert Into Catalogador ({VIEW_COLUMNS}) Values ({', '.join(map(quoted, view))})")
    for field in fields:
        run(f"Insert Into CatalogadorControles ({FIELD_COLUMNS}) Values ({', '.join(map(quoted, field))})")
    lines = "".join("\t".join(map(str, row)) + "\n" for row in rows(count))
    run(f"Copy genCodigoTexto ({COLUMNS}) From Stdin", lines)
    run("Analyze")
