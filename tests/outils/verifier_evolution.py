#!/usr/bin/python3
"""Checks the sheet "Mesures" of an evolution chart against the study it was drawn from.

    verifier_evolution.py STUDY REQUEST.json CHART.xls

Reads the store with sqlite3 and the workbook with xlrd, works every cell out again, and lists what differs: values,
kinds, number formats. It shares nothing with the program but the rules, and with verifier_rapport.py the reading of
measures and the exact arithmetic.

REQUEST: that of verifier_rapport.py (without "annee"), and "courbes": [[parameter, fraction]] (one or two),
"noms_gestionnaires", "noms_reseaux": [names], "seq", "norme", "quantile": bool, "objectif_moyen", "objectif_maximal",
"seuil_graphique": number|null, "intitule_seuil", "pluie": station.
"""
import json
import sys
from collections import defaultdict
from datetime import date
from fractions import Fraction

import xlrd

from verifier_rapport import Figure, ORGANIC_CARBON, Slots, Study, french, number

FIRST_ROW = 9
LAST_COLUMN = 20
# Columns from 1.
DATE, CURVE, MEAN_GOAL, MAX_GOAL, FLOW, RAIN, BANDS, THRESHOLD, QUANTILE, MEDIAN, NORM, CODE = \
    1, 2, 4, 5, 6, 7, 8, 15, 16, 17, 18, 19


def code_number(text):
    try:
        return Fraction(text.strip().replace(",", "."))
    except (ValueError, AttributeError):
        return None


class Curve:
    """The accepted records of one parameter and fraction."""

    def __init__(self, path, request, parameter, fraction):
        self.study = Study(path, {**request, "parametre": parameter, "fraction": fraction, "annee": "civile"})
        first, last = date.fromisoformat(request["debut"]), date.fromisoformat(request["fin"])
        self.records = [r for r in self.study.records(first, last) if self.study.keeps(r)]
        self.values = [number(r["ResultatAnaPC"]) for r in self.records]
        label = self.study.fraction_label
        self.label = f"{label} - {parameter}" if label else parameter

    def slots(self):
        return Slots([(v, False) for v in self.values], len(self.values))


def daily(study, table, column, day_column, station_column, station, request):
    rows = study.db.execute(
        f"SELECT {day_column}, {column} FROM {table} WHERE {station_column} = ? AND {column} IS NOT NULL"
        f" AND {day_column} BETWEEN ? AND ? ORDER BY {day_column}", (station, request["debut"], request["fin"]))
    return [(day, number(value)) for day, value in rows]


def bands(study):
    """Widths of the classes, each from the bound under it, in the columns' order."""
    row = study.one("SELECT * FROM GRILLE_SEQ WHERE CodeParam = ?", study.code)
    if row is None or (study.code == ORGANIC_CARBON and study.fraction != "23"):
        return None
    v1, v2, v3, b3, v4, b4 = (number(row[c]) for c in ("Valeur1SEQ", "Valeur2SEQ", "Valeur3SEQ", "Valeur3BisSEQ",
                                                       "Valeur4SEQ", "Valeur4BisSEQ"))
    lower = b3 - v2 if b3 else 0
    upper = b4 - v4 if b4 else 0
    return [v1, v2 - v1, v3 - v2 - lower, lower, v4 - v3, upper, v4 - v3]


def norm(study):
    sql, values = "SELECT ValeurNorme FROM NORME_AEP WHERE CodeParam = ?", [study.code]
    if study.fraction:
        sql, values = sql + " AND CD_FRACTION = ?", values + [study.fraction]
    row = study.db.execute(sql, values).fetchone()
    return None if row is None or row[0] is None else number(row[0])


def level_name(name, value, unit):
    return f"{name} ({french(value, 4)} {unit})"


def expected(path, request):
    """Cells by (row, column) from 1; formats by the same; number of rows."""
    curves = [Curve(path, request, p, f) for p, f in request["courbes"]]
    first = curves[0].study
    single = len(curves) == 1
    units = [c.study.unit for c in curves]
    if not single and units[1] == "non définie":
        units[1] = "non défini"
    cells, formats = {}, {}

    # One list of values for each column and day.
    days = defaultdict(lambda: defaultdict(list))
    for i, curve in enumerate(curves):
        for record, value in zip(curve.records, curve.values):
            days[record["DatePrel"]][CURVE + i].append((value, record["CodeRemarqueAnaPC"] or ""))
    flows = daily(first, "MESURE_HYDRO", "DebitJourMesureHM", "DateMesureHM", "CodeStationHM", request["debit"], request)
    rains = daily(first, "MESURE_PLUVIO", "JourMesurePM", "DateMesurePM", "CodeStationPM", request["pluie"], request)
    for column, series in ((FLOW, flows), (RAIN, rains)):
        for day, value in series:
            days[day][column].append((value, None))

    row = FIRST_ROW
    for day in sorted(days):
        for column, values in days[day].items():
            for offset, (value, code) in enumerate(values):
                cells[row + offset, column] = Figure(value, None)
                if code is not None and code != "":
                    parsed = code_number(code)
                    cells[row + offset, column + CODE - CURVE] = code if parsed is None else Figure(parsed, None)
        for offset in range(max(len(v) for v in days[day].values())):
            cells[row, DATE] = date.fromisoformat(day)
            formats[row, DATE] = "dd/mm/yyyy"
            row += 1
    rows = row - FIRST_ROW

    levels = {}
    if request["intitule_seuil"] and request["seuil_graphique"] is not None:
        levels[THRESHOLD] = (request["intitule_seuil"], Figure(number(request["seuil_graphique"]), None))
    if single:
        slots = curves[0].slots()
        for column, name, value in ((MEAN_GOAL, "Objectif moyen", request["objectif_moyen"]),
                                    (MAX_GOAL, "Objectif maximal", request["objectif_maximal"])):
            if value is not None:
                levels[column] = (name, Figure(number(value), None))
                exceeded = Fraction(100 * sum(v > number(value) for v in curves[0].values), len(curves[0].values))
                cells[4, 6 if column == MEAN_GOAL else 7] = Figure(exceeded, 2)
        if request["norme"] and norm(first) is not None:
            levels[NORM] = ("Norme eau potable", Figure(norm(first), None))
        if request["quantile"] and len(curves[0].values) >= 11:
            levels[QUANTILE] = ("Quantile 90", Figure(slots.high(), 2))
        levels[MEDIAN] = ("Médiane", Figure(slots.median(), 2))
        widths = bands(first) if request["seq"] else None
        if widths is not None:
            names = ["bleu", "vert", "jaune", "jaune clair", "orange", "orange foncé", "rouge"]
            for i, (name, width) in enumerate(zip(names, widths)):
                cells[8, BANDS + i] = "SEQ-Eau " + name
                for r in range(FIRST_ROW, FIRST_ROW + rows):
                    cells[r, BANDS + i] = Figure(width, None)
    for column, (name, value) in levels.items():
        shown = value.exact if value.decimals is None else Fraction(round(value.exact * 100), 100)
        cells[8, column] = level_name(name, shown, units[0])
        for r in range(FIRST_ROW, FIRST_ROW + rows):
            cells[r, column] = value

    # Heading.
    usual = first.station["CodeUsuelStationM"]
    cells[4, 1] = usual if request["code_usuel"] and usual else request["station"]
    cells[4, 2] = first.basin()
    cells[8, DATE] = "Date"
    for i, curve in enumerate(curves):
        cells[4 + i, 4], cells[4 + i, 5] = curve.label, units[i]
        cells[8, CURVE + i] = f"{curve.label} ({units[i]})"
        cells[8, CODE + i] = "Code remarque" if single else f"Code remarque {i + 1}"
    for column, head, series, table, key, name, title, unit in (
            (FLOW, 9, flows, "STATION_HYDRO", "CodeStationHM", "IntituleStationHM", "Débit", "l/s"),
            (RAIN, 10, rains, "STATION_PLUVIO", "CodeStationPM", "IntituleStationPM", "Pluie", "mm")):
        if series:
            station = request["debit" if column == FLOW else "pluie"]
            found = first.one(f"SELECT {name} FROM {table} WHERE {key} = ?", station)
            text = found[0] if found and found[0] else station
            cells[4, head], cells[5, head] = text, unit
            cells[8, column] = f"{title} - {text} ({unit})"
            formats[4, head] = "@"
    formats[4, 1] = "@"
    for column, text in ((11, request["protocole"]), (12, ", ".join(request["noms_gestionnaires"])),
                         (13, ", ".join(request["noms_reseaux"]))):
        if text:
            cells[4, column] = text
    return cells, formats, rows


def main():
    study_path, request_path, chart_path = sys.argv[1:4]
    with open(request_path, encoding="utf-8") as f:
        request = json.load(f)
    cells, formats, rows = expected(study_path, request)
    book = xlrd.open_workbook(chart_path, formatting_info=True)
    sheet = book.sheet_by_name("Mesures")
    wrong = []

    def where(row, column):
        return f"{xlrd.colname(column - 1)}{row}"

    # Every cell of the two heading rows, the names and the data: what is not expected is to be empty.
    for row in [4, 5, *range(8, max(sheet.nrows, FIRST_ROW + rows) + 1)]:
        for column in range(1, (13 if row < 8 else LAST_COLUMN) + 1):
            want = cells.get((row, column))
            inside = row <= sheet.nrows and column <= sheet.row_len(row - 1)
            cell = sheet.cell(row - 1, column - 1) if inside else None
            kind, value = (cell.ctype, cell.value) if cell is not None else (xlrd.XL_CELL_EMPTY, "")
            if want is None:
                ok = kind in (xlrd.XL_CELL_EMPTY, xlrd.XL_CELL_BLANK)
            elif isinstance(want, Figure):
                ok = kind == xlrd.XL_CELL_NUMBER and want.matches(value)
            elif isinstance(want, date):
                ok = kind == xlrd.XL_CELL_DATE and xlrd.xldate_as_datetime(value, book.datemode).date() == want
            else:
                ok = kind == xlrd.XL_CELL_TEXT and value == want
            if not ok:
                wrong.append(f"{where(row, column)}: {value!r} where {want!r} was expected")
    for (row, column), want in formats.items():
        got = book.format_map[book.xf_list[sheet.cell_xf_index(row - 1, column - 1)].format_key].format_str
        if got.lower().replace("\\", "") != want:
            wrong.append(f"{where(row, column)}: format {got!r} where {want!r} was expected")
    for line in wrong[:60]:
        print(line)
    print(f"{len(cells)} cells, {rows} rows compared: {len(wrong)} differ")
    return 1 if wrong else 0


if __name__ == "__main__":
    sys.exit(main())
