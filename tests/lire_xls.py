#!/usr/bin/python3
"""Reads a .xls with xlrd, a reader that shares no code with the program, and prints it as JSON for the tests.

{"feuilles": {NAME: {"cellules": {"A1": CELL}, "fusions": ["B2:C3"], "sauts": [ROW],
                    "hauteurs": {"1": POINTS}}},
 "noms": {NAME: "Feuille!A1:B2"}}
CELL: "type" (vide, texte, nombre, date, booleen, erreur), "valeur" (a date as ISO text), "ecrite" (whether the file
has a record of it), "format", "fond" ("#RRGGBB" or null), "index_fond" (the ColorIndex, 1 to 56, or null), "police"
{gras, italique, taille, nom, couleur}, "alignement" {horizontal, vertical, rotation, renvoi}, "bords" {gauche, droite, haut, bas, diagonale: style numbers}, "diagonales".
"""
import json
import sys

import xlrd


def adresse(ligne, colonne):
    lettres = ""
    colonne += 1
    while colonne:
        colonne, reste = divmod(colonne - 1, 26)
        lettres = chr(65 + reste) + lettres
    return f"{lettres}{ligne + 1}"


def rvb(classeur, index):
    couleur = classeur.colour_map.get(index)
    return None if couleur is None else "#%02X%02X%02X" % couleur


def valeur(classeur, cellule):
    types = {0: "vide", 1: "texte", 2: "nombre", 3: "date", 4: "booleen", 5: "erreur", 6: "vide"}
    lue = cellule.value
    if cellule.ctype == 3:
        lue = (xlrd.xldate_as_datetime(lue, classeur.datemode).isoformat() if lue >= 1 else
               "%02d:%02d:%02d" % xlrd.xldate_as_tuple(lue, classeur.datemode)[3:])
    elif cellule.ctype == 5:
        lue = xlrd.error_text_from_code[lue]
    elif cellule.ctype in (0, 6):
        lue = None
    return types[cellule.ctype], lue


def decrire(classeur, cellule):
    genre, lue = valeur(classeur, cellule)
    xf = classeur.xf_list[cellule.xf_index]
    police = classeur.font_list[xf.font_index]
    plein = xf.background.fill_pattern == 1
    index = xf.background.pattern_colour_index
    return {
        "type": genre, "valeur": lue, "ecrite": cellule.ctype != 0, "format": classeur.format_map[xf.format_key].format_str,
        "fond": rvb(classeur, index) if plein else None,
        "index_fond": index - 7 if plein and 8 <= index < 64 else None,
        "police": {"gras": police.weight >= 700, "italique": bool(police.italic), "taille": police.height / 20,
                   "nom": police.name, "couleur": rvb(classeur, police.colour_index)},
        "alignement": {"horizontal": xf.alignment.hor_align, "vertical": xf.alignment.vert_align,
                       "rotation": xf.alignment.rotation, "renvoi": bool(xf.alignment.text_wrapped)},
        "bords": {"gauche": xf.border.left_line_style, "droite": xf.border.right_line_style,
                  "haut": xf.border.top_line_style, "bas": xf.border.bottom_line_style,
                  "diagonale": xf.border.diag_line_style},
        "diagonales": {"bas": bool(xf.border.diag_down), "haut": bool(xf.border.diag_up)},
    }


def main():
    classeur = xlrd.open_workbook(sys.argv[1], formatting_info=True)
    resultat = {"feuilles": {}, "noms": {}}
    for feuille in classeur.sheets():
        cellules = {}
        for ligne in range(feuille.nrows):
            for colonne in range(feuille.row_len(ligne)):
                cellules[adresse(ligne, colonne)] = decrire(classeur, feuille.cell(ligne, colonne))
        resultat["feuilles"][feuille.name] = {
            "cellules": cellules,
            "fusions": [adresse(r1, c1) + ":" + adresse(r2 - 1, c2 - 1) for r1, r2, c1, c2 in feuille.merged_cells],
            "sauts": [saut[0] + 1 for saut in feuille.horizontal_page_breaks],
            "hauteurs": {str(n + 1): infos.height / 20 for n, infos in feuille.rowinfo_map.items()},
        }
    for nom in classeur.name_obj_list:
        resultat["noms"][nom.name] = nom.result.text if nom.result else None
    json.dump(resultat, sys.stdout)


main()
