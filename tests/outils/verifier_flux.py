#!/usr/bin/python3
"""Checks a workbook of fluxes against the study it was drawn from.

    verifier_flux.py STUDY REQUEST.json WORKBOOK

Reads the store with sqlite3 and the workbook with xlrd, works every cell out again in exact fractions by the textbook
method (daily concentration on the straight line between samples, times daily volume, summed), and lists what differs. It
shares nothing with the program but the rules.

REQUEST: {"station", "debit": flow station, "parametre": code, "annee": "civile"|"hydrologique",
"flux": [{"genre": "mensuel"|"annuel"|"cumule"|"volume", "debut": "2010-03" or "2010", "fin", "specifique": bool}],
"gestionnaires": [codes], "reseaux": [codes], "protocole": code or ""}
"""
import json
import sqlite3
import sys
from bisect import bisect_left
from datetime import date, timedelta
from decimal import Decimal
from fractions import Fraction

import xlrd

SHEETS = {"mensuel": ("Flux_Mensuel", 0), "annuel": ("Flux_Annuel", 1), "cumule": ("Flux_Cumulé", 2),
          "volume": ("Flux_Par_Volume", 3)}
FIRST_DAY_ROW = 8


def number(value):
    return Fraction(Decimal(str(value)).quantize(Decimal("0.0001")))


def month_after(day, months=1):
    index = day.year * 12 + day.month - 1 + months
    return date(index // 12, index % 12 + 1, day.day)


def bounds(flux, civil):
    """First day, and the day after the last."""
    if flux["genre"] == "annuel":
        month = 1 if civil else 10
        return date(int(flux["debut"]), month, 1), date(int(flux["fin"]) + 1, month, 1)
    first, last = (date(int(t[:4]), int(t[5:7]), 1) for t in (flux["debut"], flux["fin"]))
    return first, month_after(last)


def means(rows):
    days = {}
    for day, value in rows:
        days.setdefault(date.fromisoformat(day[:10]), []).append(number(value))
    return {day: sum(values) / len(values) for day, values in days.items()}


class Study:
    def __init__(self, path, request):
        self.db = sqlite3.connect(f"file:{path}?mode=ro", uri=True)
        self.r = request

    def samples(self, first, end):
        before = first - timedelta(days=15)
        window = (before.replace(day=1).isoformat(), month_after(end, 2).isoformat())
        kept = []
        for number_, day, value, producer in self.db.execute(
                "SELECT p.NumPrel, p.DatePrel, m.ResultatAnaPC, coalesce(m.CodeSandreGest, '') FROM MESURE_PHYSICO m"
                " JOIN PRELEVEMENT p USING (NumPrel) JOIN PARAMETRE q USING (CodeParam)"
                " WHERE p.CodeSandreStationM = ? AND m.CodeParam = ? AND q.CodeGroupeParam <> 'PS'"
                " AND m.ResultatAnaPC IS NOT NULL AND (m.CodeRemarqueAnaPC = '1' OR m.CodeRemarqueAnaPC = '2')"
                " AND p.DatePrel >= ? AND p.DatePrel < ? AND (? = '' OR p.Protocole = ?)",
                (self.r["station"], self.r["parametre"], *window, self.r["protocole"], self.r["protocole"])):
            if self.r["gestionnaires"] and producer not in self.r["gestionnaires"]:
                continue
            networks = {n for n, in self.db.execute("SELECT CodeReseau FROM PRELEVEMENTRSX WHERE NumPrel = ?", (number_,))}
            if self.r["reseaux"] and not networks & set(self.r["reseaux"]):
                continue
            kept.append((day, value))
        return means(kept)

    def flows(self, first, end):
        return means(self.db.execute(
            "SELECT DateMesureHM, DebitJourMesureHM FROM MESURE_HYDRO WHERE CodeStationHM = ? AND DateMesureHM >= ?"
            " AND DateMesureHM < ? AND DebitJourMesureHM IS NOT NULL",
            (self.r["debit"], first.isoformat(), end.isoformat())))

    def area(self):
        area = self.db.execute("SELECT SurfReelStationHM FROM STATION_HYDRO WHERE CodeStationHM = ?",
                               (self.r["debit"],)).fetchone()[0]
        return None if area is None else number(area)

    def names(self):
        station, basin = self.db.execute("SELECT NomStationM, NomBV FROM STATION_QUALITE LEFT JOIN BASSIN_VERSANT USING"
                                         " (NumBV) WHERE CodeSandreStationM = ?", (self.r["station"],)).fetchone()
        return basin, station, self.db.execute("SELECT IntituleStationHM FROM STATION_HYDRO WHERE CodeStationHM = ?",
                                               (self.r["debit"],)).fetchone()[0]


def concentration(days, samples, day):
    if day in samples:
        return samples[day]
    after = bisect_left(days, day)
    if after == 0 or after == len(days):
        return None
    a, b = days[after - 1], days[after]
    return samples[a] + (samples[b] - samples[a]) / (b - a).days * (day - a).days


def period_of(day, genre, civil):
    if genre != "annuel":
        return day.replace(day=1)
    return day.year if civil else day.year - (day.month < 10)


def expected_rows(study, flux, first, end, civil, daily):
    """(date or label, flux, days calculated or None, volume)"""
    nitrogen = study.r["parametre"] == "1340"
    periods = {}
    for day, _, volume, _, mg in daily:
        row = periods.setdefault(period_of(day, flux["genre"], civil), [0, 0, None, None])
        row[0] += 1
        if volume is not None:
            row[1] += 1
            row[3] = (row[3] or 0) + volume
        if mg is not None:
            row[2] = (row[2] or 0) + mg
    rows, running, running_volume = [], Fraction(0), Fraction(0)
    for key, (count, with_flow, mg, litres) in sorted(periods.items()):
        if mg is not None:
            value = mg / 10 ** 6 / (study.area() * 100 if flux["specifique"] else 1000)
            value = value / Fraction("4.42") if nitrogen else value
            running += value
            mg = running if flux["genre"] in ("cumule", "volume") else value
        if litres is not None:
            running_volume += litres / 1000
            litres = running_volume
        label = key if flux["genre"] != "annuel" else Fraction(key) if civil else f"{key}-{key + 1}"
        rows.append((label, mg, Fraction(with_flow) if with_flow < count else None, litres))
    return rows


def daily_rows(study, first, end):
    samples, flows = study.samples(first, end), study.flows(first, end)
    days, rows, day = sorted(samples), [], first
    while day < end:
        c, q = concentration(days, samples, day), flows.get(day)
        v = None if q is None else q * 86400
        rows.append((day, q, v, c, None if c is None or v is None else c * v))
        day += timedelta(days=1)
    return samples, rows


class Workbook:
    def __init__(self, path):
        self.book = xlrd.open_workbook(path, formatting_info=True)
        self.wrong, self.compared = [], 0

    def check(self, sheet, row, column, want):
        """Row and column from 1; None: empty."""
        self.compared += 1
        sheet_ = self.book.sheet_by_name(sheet)
        cell = sheet_.cell(row - 1, column - 1) if row <= sheet_.nrows and column <= sheet_.ncols else None
        kind, value = (cell.ctype, cell.value) if cell else (xlrd.XL_CELL_EMPTY, "")
        if want is None:
            ok = kind in (xlrd.XL_CELL_EMPTY, xlrd.XL_CELL_BLANK)
        elif isinstance(want, date):
            ok = kind == xlrd.XL_CELL_DATE and xlrd.xldate_as_datetime(value, self.book.datemode).date() == want
        elif isinstance(want, Fraction):
            ok = kind == xlrd.XL_CELL_NUMBER and abs(value - float(want)) <= 1e-9 * max(1e-6, abs(float(want)))
        else:
            ok = kind == xlrd.XL_CELL_TEXT and value == want
        if not ok:
            shown = float(want) if isinstance(want, Fraction) else want
            self.wrong.append(f"{sheet} {xlrd.colname(column - 1)}{row}: {value!r} where {shown!r} was expected")

    def format(self, sheet, row, column):
        sheet_ = self.book.sheet_by_name(sheet)
        xf = self.book.xf_list[sheet_.cell_xf_index(row - 1, column - 1)]
        return self.book.format_map[xf.format_key].format_str.lower().replace("\\", "")

    def check_format(self, sheet, row, column, want):
        self.compared += 1
        got = self.format(sheet, row, column)
        if got != want:
            self.wrong.append(f"{sheet} {xlrd.colname(column - 1)}{row}: format {got!r} where {want!r} was expected")

    def check_hidden(self, sheet, want):
        self.compared += 1
        if bool(self.book.sheet_by_name(sheet).visibility) != want:
            self.wrong.append(f"{sheet}: {'shown' if want else 'hidden'}")


def main():
    study_path, request_path, path = sys.argv[1:4]
    with open(request_path, encoding="utf-8") as f:
        request = json.load(f)
    study, book, civil = Study(study_path, request), Workbook(path), request["annee"] == "civile"
    for row, text in enumerate([*study.names(), study.area() if study.area() is not None else "non définie"], 1):
        book.check("Mesures", row, 2, text)
    asked = {f["genre"] for f in request["flux"]}
    for genre, (sheet, _) in SHEETS.items():
        book.check_hidden(sheet, genre not in asked)
    front = next(sheet for genre, (sheet, _) in SHEETS.items() if genre in asked)
    book.compared += 1
    if [s.name for s in book.book.sheets() if s.sheet_selected] != [front]:
        book.wrong.append(f"the file does not open on {front}")
    for flux in request["flux"]:
        sheet, rank = SHEETS[flux["genre"]]
        first, end = bounds(flux, civil)
        samples, daily = daily_rows(study, first, end)
        for i, day in enumerate(sorted(samples)):
            book.check("Mesures", FIRST_DAY_ROW + i, 3 + 3 * rank, day)
            book.check("Mesures", FIRST_DAY_ROW + i, 4 + 3 * rank, samples[day])
        book.check("Mesures", FIRST_DAY_ROW + len(samples), 3 + 3 * rank, None)
        for i, cells in enumerate(daily):
            for c, want in enumerate(cells):
                book.check("Mesures", FIRST_DAY_ROW + i, 15 + 5 * rank + c, want)
        book.check("Mesures", FIRST_DAY_ROW + len(daily), 15 + 5 * rank, None)
        book.check_format("Mesures", FIRST_DAY_ROW, 15 + 5 * rank, "dd/mm/yy")
        book.check_format("Mesures", FIRST_DAY_ROW, 18 + 5 * rank, "general")
        rows = expected_rows(study, flux, first, end, civil, daily)
        for i, (label, value, count, volume) in enumerate(rows, 2):
            book.check(sheet, i, 1, label)
            book.check(sheet, i, 2, value)
            book.check(sheet, i, 3, count)
            if flux["genre"] == "volume":
                book.check(sheet, i, 5, volume)
            if flux["genre"] != "annuel":
                book.check_format(sheet, i, 1, "mm/yyyy")
        book.check(sheet, len(rows) + 2, 1, None)
    for line in book.wrong[:40]:
        print(line)
    print(f"{book.compared} cells compared: {len(book.wrong)} differ")
    return 1 if book.wrong else 0


if __name__ == "__main__":
    sys.exit(main())
