#!/usr/bin/python3
"""Checks a physico-chemical statistics report against the study it was drawn from.

    verifier_rapport.py STUDY REQUEST.json REPORT.xls

Reads the store with sqlite3 and the report with xlrd, works every cell out again in exact fractions, and lists what
differs: values, kinds, number formats, fills, borders, bold. It shares nothing with the program but the rules.

REQUEST: {"station", "code_usuel": bool, "parametre", "fraction", "debut", "fin", "annee": "civile"|"hydrologique",
"gestionnaires": [codes], "reseaux": [codes], "commentaires": [texts], "protocole", "seuil": number|null,
"debit": station}. Dates are aaaa-mm-jj.
"""
import json
import re
import sqlite3
import sys
from datetime import date, timedelta
from decimal import Decimal
from fractions import Fraction

import xlrd

ORGANIC_CARBON = "1841"
PROTOCOLS = {"Suivi calendaire": "1", "Suivi pluie": "2"}
# RGB of the fills, by their number in the spreadsheet's default palette.
PALETTE = {33: (0, 204, 255), 34: (204, 255, 255), 35: (204, 255, 204), 36: (255, 255, 153), 6: (255, 255, 0),
           40: (255, 204, 153), 44: (255, 204, 0), 3: (255, 0, 0)}
DASH = "-"


class Figure:
    """A number that the sheet shows rounded to so many decimals (None: as it is)."""

    def __init__(self, exact, decimals):
        self.exact, self.decimals = exact, decimals

    def matches(self, shown):
        if self.decimals is None:
            return abs(shown - float(self.exact)) < 1e-9
        scaled = self.exact * 10 ** self.decimals
        if abs(shown - round(scaled) / 10 ** self.decimals) < 1e-9:
            return True
        # Half-way between two roundings, binary arithmetic may fall on either side.
        return abs(abs(scaled - int(scaled)) - Fraction(1, 2)) < Fraction(1, 10 ** 7) and \
            abs(Fraction(shown) * 10 ** self.decimals - scaled) < Fraction(6, 10)

    def __repr__(self):
        return f"{float(self.exact):.10g} ({self.decimals} decimals)"


def number(value):
    """A number of the store: nothing is 0, four decimals at most."""
    if value is None or value == "":
        return Fraction(0)
    return Fraction(Decimal(str(value).replace(",", ".")).quantize(Decimal("0.0001")))


def french(value, decimals):
    text = f"{float(round(value * 10 ** decimals)) / 10 ** decimals:.{decimals}f}"
    return re.sub(r"\.?0+$", "", text).replace(".", ",")


def years(first, last, civil):
    if civil:
        starts = [first] + [date(y, 1, 1) for y in range(first.year + 1, last.year + 1)]
    else:
        start = first if first.month >= 10 else date(first.year - 1, 10, 1)
        months = (last.year * 12 + last.month) - (first.year * 12 + first.month)
        starts = [start] + [date(start.year + i, 10, 1) for i in range(1, months // 12 + 1)]
    ends = [s - timedelta(days=1) for s in starts[1:]] + [last]
    return [(s, e, s.year if civil else f"{s.year}-{s.year + 1}") for s, e in zip(starts, ends)]


class Slots:
    """Sorted values followed by empty slots, up to the particular count."""

    def __init__(self, kept, records):
        self.kept = kept
        self.count = records - 1 if len(kept) < records else records
        self.values = sorted(v for v, _ in kept)

    def slot(self, i):
        return self.values[i - 1] if i <= len(self.values) else None

    def mean(self):
        return sum((v / 2 if code_2 else v) for v, code_2 in self.kept) / self.count

    def high(self):
        i = self.count if self.count <= 10 else round(Fraction(9 * self.count + 5, 10))
        return self.slot(i)

    def low(self):
        return self.slot(1 if self.count < 10 else round(Fraction(self.count, 10)))

    def median(self):
        n = self.count
        middle = [n // 2, n // 2 + 1] if n % 2 == 0 else [(n + 1) // 2]
        return sum((self.slot(i) or Fraction(0)) for i in middle) / len(middle)

    def deviation(self):
        m = self.mean()
        return Fraction((float(sum((v - m) ** 2 for v, _ in self.kept) / self.count)) ** 0.5)


def percentage(kept, limit):
    if limit is None or not kept:
        return DASH
    return french(Fraction(100 * sum(v > limit for v, _ in kept), len(kept)), 2) + " %"


def rounded(value):
    return DASH if value is None else Figure(value, 2)


class Study:
    def __init__(self, path, request):
        self.db = sqlite3.connect(f"file:{path}?mode=ro", uri=True)
        self.db.row_factory = sqlite3.Row
        self.request = request
        self.station = self.one("SELECT * FROM STATION_QUALITE WHERE CodeSandreStationM = ?", request["station"])
        self.parameter = self.one(
            "SELECT p.*, u.SymboleUnite FROM PARAMETRE p JOIN UNITEREFERENCE u ON u.CodeUnite = p.CodeUnite"
            " WHERE NomParam = ?", request["parametre"])
        self.code = self.parameter["CodeParam"]
        self.unit = self.parameter["SymboleUnite"] if self.parameter["CodeUnite"] else "non définie"
        self.fraction, self.fraction_label = "", ""
        if self.code == ORGANIC_CARBON and " - " in request["fraction"]:
            self.fraction, self.fraction_label = request["fraction"].split(" - ", 1)
        self.threshold = None if request["seuil"] is None else number(request["seuil"])

    def one(self, sql, *parameters):
        return self.db.execute(sql, parameters).fetchone()

    def basin(self):
        row = self.one("SELECT NomBV FROM BASSIN_VERSANT WHERE NumBV = ?", self.station["NumBV"])
        return row[0] if row else ""

    def objectives(self):
        sql, values = "SELECT MoyObjf, MaxObjf FROM OBJECTIF WHERE NumBV = ? AND CodeParam = ?", \
            [self.station["NumBV"], self.code]
        if self.fraction:
            sql, values = sql + " AND CD_FRACTION = ?", values + [self.fraction]
        row = self.db.execute(sql, values).fetchone() or (None, None)
        return [number(v) or None for v in row]

    def grid(self):
        if self.fraction and self.fraction != "23":
            return None
        row = self.one("SELECT Valeur1SEQ, Valeur2SEQ, Valeur3SEQ, Valeur4SEQ FROM GRILLE_SEQ WHERE CodeParam = ?",
                       self.code)
        return [number(v) for v in row] if row else None

    def records(self, first, last):
        r = self.request
        sql = """SELECT m.NumAnaPC, p.DatePrel, m.ResultatAnaPC, m.CodeRemarqueAnaPC, m.CodeSandreGest, m.CommResAnaPC
                 FROM MESURE_PHYSICO m JOIN PRELEVEMENT p USING (NumPrel) JOIN PARAMETRE q ON q.CodeParam = m.CodeParam
                 WHERE q.CodeGroupeParam <> 'PS' AND m.CodeParam = ? AND p.CodeSandreStationM = ?
                 AND p.DatePrel BETWEEN ? AND ?"""
        values = [self.code, r["station"], first.isoformat(), last.isoformat()]
        if self.fraction:
            sql, values = sql + " AND m.Cd_Fraction = ?", values + [self.fraction]
        if r["protocole"]:
            sql, values = sql + " AND p.Protocole = ?", values + [PROTOCOLS.get(r["protocole"], "0")]
        if r["reseaux"]:
            sql += f" AND p.NumPrel IN (SELECT NumPrel FROM PRELEVEMENTRSX WHERE CodeReseau IN ({','.join('?' * len(r['reseaux']))}))"
            values += r["reseaux"]
        return self.db.execute(sql + " ORDER BY p.DatePrel, p.HeurePrel, m.NumAnaPC", values).fetchall()

    def keeps(self, record):
        r = self.request
        if r["gestionnaires"] and (record["CodeSandreGest"] or "") not in r["gestionnaires"]:
            return False
        if r["commentaires"] and (record["CommResAnaPC"] or "") not in r["commentaires"]:
            return False
        return not re.fullmatch(r"0+([.,]0+)?", (record["CodeRemarqueAnaPC"] or "").strip())

    def flows(self, day):
        rows = self.db.execute("SELECT DebitJourMesureHM FROM MESURE_HYDRO WHERE DateMesureHM = ? AND CodeStationHM = ?"
                               " AND DebitJourMesureHM IS NOT NULL", (day, self.request["debit"]))
        return [number(f) for f, in rows]

    def results_of_the_base(self):
        return self.one("SELECT count(*) FROM MESURE_PHYSICO m JOIN PRELEVEMENT p ON p.NumPrel = m.NumPrel"
                        " JOIN PARAMETRE q ON q.CodeParam = m.CodeParam WHERE q.CodeGroupeParam <> 'PS'")[0]


def seq_colour(quantile, grid):
    bounds = [(grid[0], 34), (grid[1], 35), (0, 36), (grid[2], 6), (grid[3], 40), (0, 44)]
    return next((colour for bound, colour in bounds if quantile <= bound), 3)


def year_column(study, kept, records, flows, objectives, grid):
    """The thirteen figures of a year, and the colour of its class."""
    if not kept:
        return [DASH] * 13, None
    slots = Slots(kept, records)
    values = [v for v, _ in kept]
    highest, positive = max(values + [Fraction(0)]), [v for v in values if v > 0]
    weighted = None
    if sum(len(f) for f in flows) == len(kept):
        total = sum(q for f in flows for q in f)
        if total:
            weighted = sum(q * v for (v, _), f in zip(kept, flows) for q in f) / total
    colour = seq_colour(slots.high(), grid) if grid and slots.high() is not None else None
    return [Figure(Fraction(slots.count), 0), rounded(slots.mean()), rounded(slots.high()), rounded(highest or None),
            rounded(slots.low()), rounded(min(positive) if positive else None),
            percentage(kept, objectives[0]), percentage(kept, objectives[1]), percentage(kept, study.threshold),
            rounded(slots.median()), rounded(slots.deviation()), rounded(weighted),
            "" if colour else DASH], colour


def period_column(kept, entries, objectives):
    if not kept:
        return [DASH] * 10
    slots = Slots(kept, entries)
    positive = [v for v, _ in kept if v > 0]
    return [Figure(Fraction(slots.count), 0), rounded(slots.mean()), Figure(max([v for v, _ in kept] + [Fraction(0)]), None),
            Figure(min(positive), None) if positive else DASH, percentage(kept, objectives[0]),
            percentage(kept, objectives[1]), rounded(slots.high()), rounded(slots.low()), rounded(slots.deviation()),
            rounded(slots.median())]


def limit_label(start, limit, unit):
    return f"{start} ({french(limit, 4)} {unit})" if limit is not None else f"{start} (inexistant)"


def expected(study):
    """Cells by (row, column) from 1, fills by cell, and the blocks as (header row, number of years)."""
    r, cells, fills, blocks = study.request, {}, {}, []
    civil, unit = r["annee"] == "civile", study.unit
    objectives, grid = study.objectives(), study.grid()
    mean_label = limit_label("Fréquence de dépassement de l'objectif moyen du BV", objectives[0], unit)
    max_label = limit_label("Fréquence de dépassement de l'objectif maximum du BV", objectives[1], unit)

    cells[2, 1] = "RAPPORT STATISTIQUE - Données physico-chimiques\nles calculs sont effectués sur l'année " + \
        ("civile" if civil else "hydrologique")
    cells[4, 3] = study.basin()
    usual = study.station["CodeUsuelStationM"]
    cells[5, 3] = usual if r["code_usuel"] and usual else r["station"]
    cells[6, 3] = study.station["RiviereStationM"] or ""
    cells[7, 3] = study.station["NomStationM"] or ""
    cells[8, 3] = (study.fraction_label + " - " if study.fraction_label else "") + r["parametre"]
    cells[10, 2], cells[10, 4] = date.fromisoformat(r["debut"]), date.fromisoformat(r["fin"])
    cells[15, 2], cells[15, 4] = "Sur l'effectif de la base", "Sur les mesures retenues"
    for row, label in enumerate([f"Moyenne ({unit})", f"Maximum observé sur la période ({unit})",
                                 f"Minimum observé sur la période ({unit})", mean_label, max_label,
                                 f"Quantile 90 ({unit})", f"Quantile 10 ({unit})", f"Ecart-Type ({unit})",
                                 f"Médiane ({unit})"], 17):
        cells[row, 1] = label
    year_labels = ["Nombre de mesure(s)", "Evolution des moyennes annuelles", f"Quantile 90 ({unit})",
                   f"Maximum ({unit})", f"Quantile 10 ({unit})", f"Minimum ({unit})", mean_label, max_label,
                   limit_label("Fréquence de dépassement du seuil", study.threshold, unit), f"Médiane ({unit})",
                   f"Ecart-Type ({unit})", f"Moyenne pondérée annuelle ({unit})", "Classe SEQ"]

    kept_all, producers = [], []
    slices = years(cells[10, 2], cells[10, 4], civil)
    for k, (first, last, heading) in enumerate(slices):
        header, column = 29 + 15 * (k // 5), 2 + k % 5
        if column == 2:
            blocks.append([header, 0])
            for i, label in enumerate(year_labels, 1):
                cells[header + i, 1] = label
        blocks[-1][1] += 1
        cells[header, column] = heading if isinstance(heading, str) else Figure(Fraction(heading), 0)
        records = study.records(first, last)
        accepted = [x for x in records if study.keeps(x)]
        kept = [(number(x["ResultatAnaPC"]), (x["CodeRemarqueAnaPC"] or "").strip() == "2") for x in accepted]
        flows = [study.flows(x["DatePrel"]) for x in accepted]
        for x in accepted:
            if x["CodeSandreGest"] and x["CodeSandreGest"] not in producers:
                producers.append(x["CodeSandreGest"])
        figures, colour = year_column(study, kept, len(records), flows, objectives, grid)
        for i, figure in enumerate(figures, 1):
            cells[header + i, column] = figure
        if colour:
            fills[header + 13, column] = colour
        kept_all += kept
    for column, entries in ((2, study.results_of_the_base()), (4, len(kept_all))):
        for row, figure in enumerate(period_column(kept_all, entries, objectives), 16):
            cells[row, column] = figure
    names = [study.one("SELECT NomInterv FROM INTERVENANT WHERE CodeSandreInterv = ?", c) for c in producers]
    if names:
        cells[12, 1] = "Source des données utilisées : " + ", ".join(n[0] for n in names if n)
    return cells, fills, blocks


class Report:
    def __init__(self, path):
        self.book = xlrd.open_workbook(path, formatting_info=True)
        self.sheet = self.book.sheet_by_name("Données")

    def cell(self, row, column):
        if row > self.sheet.nrows or column > self.sheet.ncols:
            return None
        return self.sheet.cell(row - 1, column - 1)

    def style(self, row, column):
        return self.book.xf_list[self.sheet.cell_xf_index(row - 1, column - 1)]

    def number_format(self, row, column):
        return self.book.format_map[self.style(row, column).format_key].format_str

    def fill(self, row, column):
        background = self.style(row, column).background
        return self.book.colour_map[background.pattern_colour_index] if background.fill_pattern == 1 else None

    def bold(self, row, column):
        return self.book.font_list[self.style(row, column).font_index].weight >= 700


def compare_value(report, row, column, want, wrong):
    cell = report.cell(row, column)
    kind, value = (cell.ctype, cell.value) if cell is not None else (xlrd.XL_CELL_EMPTY, "")
    where = f"{xlrd.colname(column - 1)}{row}"
    if isinstance(want, Figure):
        ok = kind == xlrd.XL_CELL_NUMBER and want.matches(value)
    elif isinstance(want, date):
        ok = kind == xlrd.XL_CELL_DATE and \
            xlrd.xldate_as_datetime(value, report.book.datemode).date() == want
    else:
        ok = value == want and kind in ((xlrd.XL_CELL_TEXT,) if want else (xlrd.XL_CELL_EMPTY, xlrd.XL_CELL_BLANK, xlrd.XL_CELL_TEXT))
    if not ok:
        wrong.append(f"{where}: {value!r} where {want!r} was expected")


def compare_styles(report, fills, blocks, cells, wrong):
    def check(what, row, column, got, want):
        if got != want:
            wrong.append(f"{xlrd.colname(column - 1)}{row}: {what} {got!r} where {want!r} was expected")

    check("format", 5, 3, report.number_format(5, 3), "@")
    for column in (2, 4):
        check("format", 10, column, report.number_format(10, column).lower().replace("\\", ""), "dd/mm/yyyy")
    for header, count in blocks:
        last = 1 + count
        for column in range(1, 7):
            inside = column <= last
            check("fill", header, column, report.fill(header, column), PALETTE[33] if inside else None)
            if 1 < column <= last:
                check("bold", header, column, report.bold(header, column), True)
            for row in range(header, header + 14):
                if row > header:
                    colour = fills.get((row, column))
                    check("fill", row, column, report.fill(row, column), PALETTE[colour] if colour else None)
                border = report.style(row, column).border
                # 1 is thin, 2 is medium; a right neighbour of the block may carry its edge.
                if inside:
                    check("left edge", row, column, border.left_line_style, 2 if column == 1 else 1)
                    check("right edge", row, column, border.right_line_style, 2 if column == last else 1)
                    check("top edge", row, column, border.top_line_style, 2 if row == header else 1)
                    check("bottom edge", row, column, border.bottom_line_style, 2 if row == header + 13 else 1)
                elif column > last + 1:
                    check("edges", row, column, border.left_line_style + border.right_line_style, 0)


def main():
    study_path, request_path, report_path = sys.argv[1:4]
    with open(request_path, encoding="utf-8") as f:
        study = Study(study_path, json.load(f))
    cells, fills, blocks = expected(study)
    report, wrong = Report(report_path), []
    for (row, column), want in sorted(cells.items()):
        compare_value(report, row, column, want, wrong)
    # Nothing stands where nothing should: after the last block, and in the columns of absent years.
    header, count = blocks[-1]
    for row in range(header, report.sheet.nrows + 1):
        for column in range(2 + count if row < header + 14 else 1, report.sheet.ncols + 1):
            cell = report.cell(row, column)
            if cell.value != "":
                wrong.append(f"{xlrd.colname(column - 1)}{row}: {cell.value!r} where nothing was expected")
    if (12, 1) not in cells and report.cell(12, 1).value != "":
        wrong.append(f"A12: {report.cell(12, 1).value!r} where nothing was expected")
    compare_styles(report, fills, blocks, cells, wrong)
    for line in wrong:
        print(line)
    print(f"{len(cells)} cells, {len(blocks)} blocks, {len(fills)} classes compared: {len(wrong)} differ")
    return 1 if wrong else 0


if __name__ == "__main__":
    sys.exit(main())
