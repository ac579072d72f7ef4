#!/usr/bin/env python3
"""Makes the workbooks of this folder, those that a test cannot make through the program's own workbook layer: cells
holding an error, a cell of 100 000 characters, files locked by a password ("secret").

    tests/donnees/classeurs/fabriquer.py      (needs soffice)

The packages are written with the standard library; LibreOffice turns them into the other formats by a macro in a profile
of its own.
"""
import os
import pathlib
import subprocess
import tempfile
import zipfile
from xml.sax.saxutils import escape

ICI = pathlib.Path(__file__).resolve().parent
MOMENT = (2020, 1, 1, 0, 0, 0)

ENTETES = ["Code Agence", "Nom", "Date", "Heure", "Paramètre", "Valeur", "Code remarque", "Code Fraction", "Commentaire",
           "Unité de mesure", "Seuil de détection", "Protocole de prélèvement", "Gestionnaire", "Organisme préleveur",
           "Laboratoire d'analyses", "Réseau de mesure"]
LIGNE = ["04211940", "Pont de l'Ile", "01/03/2009", "10:30", "Nitrates", "38,5", "1", "23", "", "mg(NO3)/L", "0,5",
         "Suivi calendaire", "Agence de l'eau", "Préleveur de l'Ouest", "Laboratoire d'Armor", "Réseau d'Armor"]
ERREUR = object()  # a cell holding #N/A


def lignes(**remplacements):
    """The headers, a row that goes through, and a row with these columns replaced."""
    deuxieme = LIGNE[:]
    deuxieme[2] = "02/03/2009"
    for colonne, valeur in remplacements.items():
        deuxieme[ENTETES.index({"valeur": "Valeur", "commentaire": "Commentaire"}[colonne])] = valeur
    return [ENTETES, LIGNE, deuxieme]


def paquet(nom, contenu):
    with zipfile.ZipFile(nom, "w") as archive:
        for chemin, texte in contenu:
            info = zipfile.ZipInfo(chemin, MOMENT)
            info.compress_type = zipfile.ZIP_STORED if chemin == "mimetype" else zipfile.ZIP_DEFLATED
            archive.writestr(info, texte)


def xlsx(nom, donnees):
    """A package of inline texts, [ECMA-376]."""
    rangees = []
    for l, rangee in enumerate(donnees, 1):
        cellules = []
        for c, valeur in enumerate(rangee):
            lieu = f"{chr(65 + c)}{l}"
            if valeur is ERREUR:
                cellules.append(f'<c r="{lieu}" t="e"><f>NA()</f><v>#N/A</v></c>')
            elif valeur:
                cellules.append(f'<c r="{lieu}" t="inlineStr"><is><t xml:space="preserve">{escape(valeur)}</t></is></c>')
        rangees.append(f'<row r="{l}">{"".join(cellules)}</row>')
    espace = "http://schemas.openxmlformats.org"
    paquet(nom, [
        ("[Content_Types].xml",
         f'<?xml version="1.0" encoding="UTF-8"?><Types xmlns="{espace}/package/2006/content-types">'
         '<Default Extension="rels" ContentType="application/vnd.openxmlformats-package.relationships+xml"/>'
         '<Override PartName="/xl/workbook.xml" '
         'ContentType="application/vnd.openxmlformats-officedocument.spreadsheetml.sheet.main+xml"/>'
         '<Override PartName="/xl/worksheets/sheet1.xml" '
         'ContentType="application/vnd.openxmlformats-officedocument.spreadsheetml.worksheet+xml"/></Types>'),
        ("_rels/.rels",
         f'<?xml version="1.0" encoding="UTF-8"?><Relationships xmlns="{espace}/package/2006/relationships">'
         f'<Relationship Id="r1" Type="{espace}/officeDocument/2006/relationships/officeDocument" '
         'Target="xl/workbook.xml"/></Relationships>'),
        ("xl/workbook.xml",
         f'<?xml version="1.0" encoding="UTF-8"?><workbook xmlns="{espace}/spreadsheetml/2006/main" '
         f'xmlns:r="{espace}/officeDocument/2006/relationships"><sheets><sheet name="Mesures" sheetId="1" r:id="r1"/>'
         '</sheets></workbook>'),
        ("xl/_rels/workbook.xml.rels",
         f'<?xml version="1.0" encoding="UTF-8"?><Relationships xmlns="{espace}/package/2006/relationships">'
         f'<Relationship Id="r1" Type="{espace}/officeDocument/2006/relationships/worksheet" '
         'Target="worksheets/sheet1.xml"/></Relationships>'),
        ("xl/worksheets/sheet1.xml",
         f'<?xml version="1.0" encoding="UTF-8"?><worksheet xmlns="{espace}/spreadsheetml/2006/main"><sheetData>'
         f'{"".join(rangees)}</sheetData></worksheet>'),
    ])


def ods(nom, donnees):
    """An OpenDocument package, [ODF] 1.2."""
    rangees = []
    for rangee in donnees:
        cellules = []
        for valeur in rangee:
            if valeur is ERREUR:
                cellules.append('<table:table-cell table:formula="of:=NA()" office:value-type="string"/>')
            else:
                cellules.append('<table:table-cell office:value-type="string"><text:p>' + escape(valeur) +
                                '</text:p></table:table-cell>')
        rangees.append(f'<table:table-row>{"".join(cellules)}</table:table-row>')
    espace = "urn:oasis:names:tc:opendocument:xmlns"
    paquet(nom, [
        ("mimetype", "application/vnd.oasis.opendocument.spreadsheet"),
        ("content.xml",
         f'<?xml version="1.0" encoding="UTF-8"?><office:document-content xmlns:office="{espace}:office:1.0" '
         f'xmlns:table="{espace}:table:1.0" xmlns:text="{espace}:text:1.0" xmlns:of="{espace}:of:1.2" '
         'office:version="1.2"><office:body><office:spreadsheet><table:table table:name="Mesures">'
         f'{"".join(rangees)}</table:table></office:spreadsheet></office:body></office:document-content>'),
        ("META-INF/manifest.xml",
         f'<?xml version="1.0" encoding="UTF-8"?><manifest:manifest xmlns:manifest="{espace}:manifest:1.0" '
         'manifest:version="1.2"><manifest:file-entry manifest:full-path="/" '
         'manifest:media-type="application/vnd.oasis.opendocument.spreadsheet"/><manifest:file-entry '
         'manifest:full-path="content.xml" manifest:media-type="text/xml"/></manifest:manifest>'),
    ])


MACRO = """<?xml version="1.0" encoding="UTF-8"?>
<!DOCTYPE script:module PUBLIC "-//OpenOffice.org//DTD OfficeDocument 1.0//EN" "module.dtd">
<script:module xmlns:script="http://openoffice.org/2000/script" script:name="Module1" script:language="StarBasic">
Function Nomme(nom, valeur)
    n = CreateUnoStruct("com.sun.star.beans.NamedValue")
    n.Name = nom
    n.Value = valeur
    Nomme = n
End Function

Sub Enregistrer(source, cible, filtre, motDePasse)
    Dim ouvrir(0) As New com.sun.star.beans.PropertyValue
    ouvrir(0).Name = "Hidden"
    ouvrir(0).Value = True
    document = StarDesktop.loadComponentFromURL(ConvertToURL(source), "_blank", 0, ouvrir())
    Dim garder(1) As New com.sun.star.beans.PropertyValue
    garder(0).Name = "FilterName"
    garder(0).Value = filtre
    If motDePasse &lt;&gt; "" And InStr(filtre, "XML") &gt; 0 Then
        garder(1).Name = "EncryptionData"
        garder(1).Value = CreateUnoValue("[]com.sun.star.beans.NamedValue", _
                                         Array(Nomme("CryptoType", "Standard"), Nomme("OOXPassword", motDePasse)))
    ElseIf motDePasse &lt;&gt; "" Then
        garder(1).Name = "Password"
        garder(1).Value = motDePasse
    End If
    document.storeToURL(ConvertToURL(cible), garder())
    document.close(True)
End Sub

Sub Main
    On Error GoTo Fin ' an error box would wait for ever
%s
Fin:
End Sub
</script:module>
"""
def convertir(travaux):
    """(source, target, filter, password) by LibreOffice."""
    appels = "\n".join(f'    Enregistrer("{s}", "{c}", "{f}", "{m}")' for s, c, f, m in travaux)
    with tempfile.TemporaryDirectory() as profil:
        soffice = ["soffice", f"-env:UserInstallation=file://{profil}", "--headless", "--norestore"]
        # A first start lays out the profile, an empty Module1 in it.
        subprocess.run(soffice + ["--terminate_after_init"], check=True, timeout=120)
        pathlib.Path(profil, "user/basic/Standard/Module1.xba").write_text(MACRO % appels, encoding="utf-8")
        subprocess.run(soffice + ["macro:///Standard.Module1.Main"], check=True, timeout=120)


def main():
    os.chdir(ICI)
    xlsx("cellule_erreur.xlsx", lignes(valeur=ERREUR))
    ods("cellule_erreur.ods", lignes(valeur=ERREUR))
    xlsx("cellule_longue.xlsx", lignes(commentaire="x" * 100_000))
    ods("cellule_longue.ods", lignes(commentaire="x" * 100_000))
    excel97, excel2007 = "MS Excel 97", "Calc MS Excel 2007 XML"
    with tempfile.TemporaryDirectory() as dossier:
        source = os.path.join(dossier, "source.xlsx")
        xlsx(source, lignes())
        convertir([
            (ICI / "cellule_erreur.ods", ICI / "cellule_erreur.xls", excel97, ""),
            (ICI / "cellule_longue.ods", ICI / "cellule_longue.xls", excel97, ""),
            (source, ICI / "mot_de_passe.xls", excel97, "secret"),
            (source, ICI / "mot_de_passe.xlsx", excel2007, "secret"),
            (source, ICI / "mot_de_passe.ods", "calc8", "secret"),
        ])


if __name__ == "__main__":
    main()
