#!/usr/bin/python3
"""Checks a graph of flows and rainfall against the study it was drawn from.

    verifier_hydrologie.py STUDY REQUEST.json GRAPH.xls

Reads the store with sqlite3, the cells with xlrd and the chart from the file's records, works the rows out again, and lists
what differs. It shares nothing with the program but the rules.

REQUEST: {"debit": "jour"|"mois"|null, "station_debit", "pluie": bool, "station_pluie", "debut", "fin"}; dates aaaa-mm-jj.
"""
import json
import os
import sqlite3
import subprocess
import sys
from datetime import date, timedelta

import xlrd

MONTHS = ["janvier", "février", "mars", "avril", "mai", "juin", "juillet", "août", "septembre", "octobre", "novembre",
          "décembre"]


def month_after(day):
    return date(day.year + day.month // 12, day.month % 12 + 1, 1)


def read(base, request):
    def values(sql, station):
        return [(date.fromisoformat(d[:10]), v) for d, v in
                base.execute(sql, (request["debut"], request["fin"], station))]

    flows, rain = [], []
    if request["debit"]:
        column = "DebitJourMesureHM" if request["debit"] == "jour" else "DebitMoisMesureHM"
        flows = values(f"SELECT DateMesureHM, {column} FROM MESURE_HYDRO WHERE DateMesureHM BETWEEN ? AND ? AND "
                       f"CodeStationHM = ? AND {column} IS NOT NULL ORDER BY 1, HeureMesureHM, NumMesureHM",
                       request["station_debit"])
    if request["pluie"]:
        rain = values("SELECT DateMesurePM, JourMesurePM FROM MESURE_PLUVIO WHERE DateMesurePM BETWEEN ? AND ? AND "
                      "CodeStationPM = ? AND JourMesurePM IS NOT NULL ORDER BY 1, NumMesurePM", request["station_pluie"])
    if request["debit"] == "mois" and flows:
        flows = [(d.replace(day=1), v) for d, v in flows]
        months = {}
        for day, value in rain:
            months[day.replace(day=1)] = months.get(day.replace(day=1), 0) + value
        rain = sorted(months.items())
    return flows, rain


def merge(flows, rain, monthly):
    """Rows (day, flow, rain): one a day, more where a series has several values on it; a row at the head of each gap."""
    days = sorted({d for d, _ in flows} | {d for d, _ in rain})
    rows = []
    for day in days:
        f, r = [v for d, v in flows if d == day], [v for d, v in rain if d == day]
        for i in range(max(len(f), len(r))):
            rows.append((day, f[i] if i < len(f) else None, r[i] if i < len(r) else None))
    with_gaps = []
    for row in rows:
        if with_gaps and with_gaps[-1][1] is not None:
            due = month_after(with_gaps[-1][0]) if monthly else with_gaps[-1][0] + timedelta(1)
            if row[0] > due:
                with_gaps.append((due, None, None))
        with_gaps.append(row)
    return with_gaps


def title(request, basin, flow_name, rain_name, flows, rain):
    words = "mensuels" if request["debit"] == "mois" else "journaliers"
    lines = ["BASSIN VERSANT :  " + basin]
    if flows and rain:
        lines.append(f"Evolution des débits moyens {words} (station {request['station_debit']}) et de la pluviométrie "
                     f"(station {request['station_pluie']})")
    elif flows:
        lines.append(f"Evolution des débits moyens {words} à la station de mesure : {request['station_debit']}")
    else:
        lines.append(f"Evolution des précipitations journalières à la station de mesure : {request['station_pluie']}")
    lines.append("Cours d'eau et Lieu-dit : " + flow_name if flows else "Lieu-dit : " + rain_name)
    start, end = date.fromisoformat(request["debut"]), date.fromisoformat(request["fin"])
    lines.append(f"Période : {MONTHS[start.month - 1]} {start.year} - {MONTHS[end.month - 1]} {end.year}")
    return "\n".join(lines)


class Report:
    def __init__(self):
        self.differences = []

    def same(self, what, got, wanted):
        if got != wanted:
            self.differences.append(f"{what}: {got!r}, not {wanted!r}")


def check_cells(report, book, rows, alone, monthly):
    sheet = book.sheet_by_name("Mesures")
    filled = [r for r in range(8, sheet.nrows) if any(v != "" for v in sheet.row_values(r))]
    report.same("rows", filled, list(range(8, 8 + len(rows))))
    for i, (day, flow, rain) in enumerate(rows[:max(0, sheet.nrows - 8)]):
        cells = sheet.row(8 + i)
        shown = cells[0]
        report.same(f"A{9 + i} kind", shown.ctype, xlrd.XL_CELL_DATE)
        report.same(f"A{9 + i}", xlrd.xldate_as_datetime(shown.value, book.datemode).date(), day)
        style = book.format_map[book.xf_list[shown.xf_index].format_key].format_str
        report.same(f"A{9 + i} format", style.replace("\\", "").lower(), "mmm-yy" if monthly else "dd/mm/yyyy")
        for column, wanted in enumerate([rain] if alone else [flow, rain]):
            cell = cells[1 + column] if 1 + column < len(cells) else None
            value = cell.value if cell is not None and cell.ctype == xlrd.XL_CELL_NUMBER else None
            near = (value is None) == (wanted is None) and (value is None or abs(value - wanted) < 1e-6)
            if not near:
                report.same(f"{'BC'[column]}{9 + i}", value, wanted)
        if len(report.differences) > 20:
            return


def check_chart(report, chart, rows, alone, flows, rain, monthly):
    def column(letter):
        return f"Mesures!{letter}9" + (f":{letter}{8 + len(rows)}" if len(rows) > 1 else "")

    wanted = []
    if alone:
        wanted = [(column("B"), 51, 1)]
    else:
        if flows:
            wanted.append((column("B"), 65, 1))
        if rain:
            wanted.append((column("C"), 51, 2 if flows else 1))
    report.same("series", [(s["valeurs"], s["type"], s["groupe"]) for s in chart["series"]], wanted)
    for series in chart["series"]:
        report.same("abscissae", series["abscisses"], column("A"))
    axes = {(a["type"], a["groupe"]): a for a in chart["axes"]}
    flow_title, rain_title = " Débit ( l/s ) ", "Pluviométrie  ( mm ) "
    left = axes[2, 1]
    report.same("left axis", (left["titre"], left["minimum"], left["inverse"]),
                (flow_title if flows and not alone else rain_title, 0, False))
    for (kind, group), axis in axes.items():
        if kind == 1:
            report.same(f"dates of group {group}", (axis["temporel"], axis["entre_categories"]), (True, True))
    report.same("format of the dates", axes[1, 1]["format"].replace("\\", "").lower(),
                "mmm-yy" if monthly else "dd/mm/yyyy")
    report.same("gaps", chart["trous"], "laisses")
    labels = [bool(s["etiquettes"].get("serie")) for s in chart["series"]]
    report.same("labels", labels, [bool(flows) and monthly and not alone] + [False] * (len(labels) - 1))
    if not (flows and rain and not alone):
        report.same("automatic maximum", left["maximum"], None)
        return
    report.same("labels of the upper axis", axes[1, 2]["etiquettes"], 0)
    right = axes[2, 2]
    report.same("right axis", (right["titre"], right["minimum"], right["inverse"]), (rain_title, 0, True))
    # The lowest end of the rain stays above the highest flow, whatever their days.
    taken = max(v for _, v in flows) / left["maximum"] + max(v for _, v in rain) / right["maximum"]
    if not 0.4 < taken < 0.95:
        report.differences.append(f"flow and rain together take {taken:.2f} of the plot")


def main():
    study, request_file, graph = sys.argv[1:]
    with open(request_file, encoding="utf-8") as source:
        request = json.load(source)
    base = sqlite3.connect(f"file:{study}?mode=ro", uri=True)
    flows, rain = read(base, request)
    monthly = request["debit"] == "mois" and bool(flows)
    alone = not request["debit"]
    rows = merge(flows, rain, monthly)

    def one(sql, *args):
        row = base.execute(sql, args).fetchone()
        return row[0] if row and row[0] is not None else ""

    basin = one("SELECT Bassin_versant FROM LIEU_BASSIN_VERSANT")
    flow_name = one("SELECT IntituleStationHM FROM STATION_HYDRO WHERE CodeStationHM = ?", request["station_debit"])
    rain_name = one("SELECT IntituleStationPM FROM STATION_PLUVIO WHERE CodeStationPM = ?", request["station_pluie"])

    report = Report()
    book = xlrd.open_workbook(graph, formatting_info=True)
    sheet = book.sheet_by_name("Mesures")
    heading = [sheet.cell_value(3, 0), sheet.cell_value(3, 1), sheet.cell_value(4, 0)]
    if alone:
        report.same("heading", heading, [request["station_pluie"], basin, "mm"])
    elif flows:
        report.same("heading", heading, [request["station_debit"], basin, "l/s"])
    if rain and not alone:
        report.same("second station", [sheet.cell_value(3, 2), sheet.cell_value(4, 2)], [request["station_pluie"], "mm"])
    check_cells(report, book, rows, alone, monthly)

    reader = os.path.join(os.path.dirname(os.path.abspath(__file__)), "..", "lire_graphiques.py")
    content = json.loads(subprocess.run(["/usr/bin/python3", reader, graph], capture_output=True, check=True).stdout)
    report.same("title", content["Mesures"]["textes"]["Text Box 2"],
                title(request, basin, flow_name, rain_name, flows, rain))
    report.same("charts", len(content["Mesures"]["graphiques"]), 1)
    check_chart(report, content["Mesures"]["graphiques"][0], rows, alone, flows, rain, monthly)
    print("\n".join(report.differences[:20]))
    sys.exit(1 if report.differences else 0)


main()
