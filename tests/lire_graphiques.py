#!/usr/bin/python3
"""Reads the charts and text boxes of a .xls from its records, with no code of the program or of Calc, and prints JSON.

{SHEET: {"graphiques": [CHART], "textes": {NAME: TEXT}, "noms": {NAME: "Feuille!A1"}}}
CHART: "series": [SERIES], "axes": [AXIS], "groupes": [GROUP], "titre", "legende" (bool), "trous" (laisses, zero,
relies), "cellule": the cell under its top left corner ("V8").
SERIES, in the file's order: "nom" (text), "adresse_nom", "valeurs", "abscisses" (addresses "Mesures!B9:B60"), "type"
(the spreadsheet's constant: 65, 51, 52, 76, -4169, or a name), "groupe" (1, 2), "marqueur" {style, taille, bord, fond,
index_bord, index_fond}, "trait" {style, epaisseur, couleur}, "fond" ("#RRGGBB" or null), "points": {"3": the same}, "etiquettes":
{"serie": {...}, "3": {"texte", ...}}, "dans_legende".
AXIS: "type" (1 category, 2 value), "groupe", "minimum", "maximum", "pas" (null: automatic), "inverse", "logarithmique",
"croise_au_maximum", "titre", "format", "orientation" (degrees), "temporel", "entre_categories".
"""
import json
import struct
import sys

import xlrd.compdoc


STYLES_MARQUEUR = {0: -4142, 1: 1, 2: 2, 3: 3, 4: -4168, 5: 5, 6: -4115, 7: -4118, 8: 8, 9: 9}
STYLES_TRAIT = {0: 1, 1: -4115, 2: -4118, 3: 4, 4: 5, 5: -4142, 6: -4125, 7: -4126, 8: -4124}
EPAISSEURS = {-1: 1, 0: 2, 1: -4138, 2: 4}


def adresse(ligne, colonne):
    lettres = ""
    colonne += 1
    while colonne:
        colonne, reste = divmod(colonne - 1, 26)
        lettres = chr(65 + reste) + lettres
    return f"{lettres}{ligne + 1}"


def rvb(octets):
    return "#%02X%02X%02X" % tuple(octets[:3])


class Classeur:
    def __init__(self, chemin):
        with open(chemin, "rb") as fichier:
            contenu = fichier.read()
        doc = xlrd.compdoc.CompDoc(contenu)
        self.octets = doc.get_named_stream("Workbook")
        self.feuilles, self.sst, self.externes, self.noms, self.formats = [], [], [], [], {}
        self.lire_global()

    def enregistrements(self, debut):
        """Records from an offset up to the end of its substream; CONTINUE parts are given apart."""
        place, profondeur = debut, 0
        while place + 4 <= len(self.octets):
            genre, taille = struct.unpack_from("<HH", self.octets, place)
            donnees = self.octets[place + 4:place + 4 + taille]
            place += 4 + taille
            if genre == 0x809:
                profondeur += 1
            yield genre, donnees, profondeur
            if genre == 0x0A:
                profondeur -= 1
                if profondeur == 0:
                    return

    def lire_global(self):
        sst, dans_sst = b"", False
        morceaux = []
        for genre, d, _ in self.enregistrements(0):
            if genre == 0x85:
                place, _, _, n, drapeau = struct.unpack_from("<IBBBB", d)
                nom = d[8:8 + 2 * n].decode("utf-16-le") if drapeau & 1 else d[8:8 + n].decode("latin-1")
                self.feuilles.append((nom, place))
            elif genre == 0x17:
                for i in range(struct.unpack_from("<H", d)[0]):
                    self.externes.append(struct.unpack_from("<HHH", d, 2 + 6 * i))
            elif genre == 0x18:
                n, formule = d[3], struct.unpack_from("<H", d, 4)[0]
                feuille = struct.unpack_from("<H", d, 8)[0]
                debut = 15
                if d[14] & 1:
                    nom, debut = d[debut:debut + 2 * n].decode("utf-16-le"), debut + 2 * n
                else:
                    nom, debut = d[debut:debut + n].decode("latin-1"), debut + n
                self.noms.append((nom, feuille, d[debut:debut + formule]))
            elif genre == 0x41E:
                cle, n, drapeau = struct.unpack_from("<HHB", d)
                self.formats[cle] = (d[5:5 + 2 * n].decode("utf-16-le") if drapeau & 1
                                     else d[5:5 + n].decode("latin-1"))

    def reference(self, jetons, sienne=None):
        """The address that a formula of one reference stands for."""
        if not jetons:
            return None
        code = jetons[0]
        if code & 0x1F == 0x1A:
            externe, ligne, colonne = struct.unpack_from("<HHH", jetons, 1)
            lieu = adresse(ligne, colonne & 0xFF)
        elif code & 0x1F == 0x1B:
            externe, l1, l2, c1, c2 = struct.unpack_from("<HHHHH", jetons, 1)
            lieu = adresse(l1, c1 & 0xFF)
            if (l1, c1) != (l2, c2):
                lieu += ":" + adresse(l2, c2 & 0xFF)
        else:
            return None
        return self.feuilles[self.externes[externe][1]][0] + "!" + lieu


def chaine(d, debut=0, large=False):
    """A string with its length in one byte (or two)."""
    if large:
        n, drapeau = struct.unpack_from("<HB", d, debut)
        debut += 3
    else:
        n, drapeau = d[debut], d[debut + 1]
        debut += 2
    return d[debut:debut + 2 * n].decode("utf-16-le") if drapeau & 1 else d[debut:debut + n].decode("latin-1")


class Noeud:
    """A record of a chart with those that stand between its BEGIN and END."""

    def __init__(self, genre, donnees):
        self.genre, self.donnees, self.enfants = genre, donnees, []

    def tous(self, genre):
        return [e for e in self.enfants if e.genre == genre]

    def premier(self, genre):
        trouves = self.tous(genre)
        return trouves[0] if trouves else None


def arbre(enregistrements):
    racine = Noeud(0, b"")
    pile = [racine]
    for genre, d in enregistrements:
        if genre == 0x1033:
            pile.append(pile[-1].enfants[-1])
        elif genre == 0x1034:
            pile.pop()
        else:
            pile[-1].enfants.append(Noeud(genre, d))
    return racine


class Graphique:
    def __init__(self, classeur, enregistrements):
        self.classeur = classeur
        self.racine = arbre(enregistrements).premier(0x1002)

    def liens(self, noeud):
        resultat = {}
        dernier = None
        for enfant in noeud.enfants:
            if enfant.genre == 0x1051:
                sorte, genre, _, cle, taille = struct.unpack_from("<BBHHH", enfant.donnees)
                dernier = sorte
                resultat[sorte] = {"genre": genre, "adresse": self.classeur.reference(enfant.donnees[8:8 + taille]),
                                   "texte": None}
            elif enfant.genre == 0x100D and dernier is not None:
                resultat[dernier]["texte"] = chaine(enfant.donnees, 2)
        return resultat

    def aspect(self, noeud):
        lu = {}
        for enfant in noeud.enfants:
            d = enfant.donnees
            if enfant.genre == 0x1007:
                style, epaisseur, drapeaux, index = struct.unpack_from("<HhHH", d, 4)
                lu["trait"] = {"style": STYLES_TRAIT.get(style), "epaisseur": EPAISSEURS.get(epaisseur),
                               "couleur": rvb(d), "index": index - 7 if 8 <= index < 64 else None,
                               "automatique": bool(drapeaux & 1)}
            elif enfant.genre == 0x100A:
                motif, drapeaux = struct.unpack_from("<HH", d, 8)
                index = struct.unpack_from("<H", d, 12)[0]
                lu["fond"] = rvb(d) if motif else None
                lu["index_fond"] = index - 7 if 8 <= index < 64 else None
                lu["fond_automatique"] = bool(drapeaux & 1)
            elif enfant.genre == 0x1009:
                style, drapeaux, bord, fond, taille = struct.unpack_from("<HHHHI", d, 8)
                lu["marqueur"] = {"style": STYLES_MARQUEUR.get(style), "bord": rvb(d), "fond": rvb(d[4:]),
                                  "index_bord": bord - 7 if 8 <= bord < 64 else None,
                                  "index_fond": fond - 7 if 8 <= fond < 64 else None,
                                  "sans_bord": bool(drapeaux & 0x20), "sans_fond": bool(drapeaux & 0x10),
                                  "automatique": bool(drapeaux & 1), "taille": taille / 20}
        return lu

    def texte(self, noeud):
        lien = self.liens(noeud).get(0)
        return lien["texte"] if lien else None

    def groupes(self):
        groupes = []
        for rang, jeu in enumerate(self.racine.tous(0x1041)):
            for groupe in jeu.tous(0x1014):
                ordre = struct.unpack_from("<H", groupe.donnees, 18)[0]
                genre = "?"
                for enfant in groupe.enfants:
                    d = enfant.donnees
                    if enfant.genre == 0x1017:
                        chevauchement, vide, drapeaux = struct.unpack_from("<hhH", d)
                        genre = 52 if drapeaux & 2 else 51
                    elif enfant.genre == 0x1018:
                        genre = 65
                    elif enfant.genre == 0x101A:
                        genre = 76 if struct.unpack_from("<H", d)[0] & 1 else 1
                    elif enfant.genre == 0x101B:
                        genre = -4169
                    elif enfant.genre == 0x1019:
                        genre = 5
                groupes.append({"ordre": ordre, "type": genre, "groupe": rang + 1,
                                "aspect": self.aspect_groupe(groupe)})
        return groupes

    def aspect_groupe(self, groupe):
        format_donnees = groupe.premier(0x1006)
        return self.aspect(format_donnees) if format_donnees else {}

    def series(self):
        groupes = {g["ordre"]: g for g in self.groupes()}
        series = []
        for noeud in self.racine.tous(0x1003):
            liens = self.liens(noeud)
            appartenance = noeud.premier(0x1045)
            groupe = groupes.get(struct.unpack_from("<H", appartenance.donnees)[0] if appartenance else 0,
                                 {"type": None, "groupe": None})
            serie = {"nom": liens.get(0, {}).get("texte"), "adresse_nom": liens.get(0, {}).get("adresse"),
                     "valeurs": liens.get(1, {}).get("adresse"), "abscisses": liens.get(2, {}).get("adresse"),
                     "type": groupe["type"], "groupe": groupe["groupe"], "points": {}, "etiquettes": {},
                     "nombre": struct.unpack_from("<H", noeud.donnees, 6)[0],
                     "dans_legende": not any(struct.unpack_from("<HH", e.donnees) == (0xFFFF, 1)
                                             for e in noeud.tous(0x1043))}
            for fmt in noeud.tous(0x1006):
                point = struct.unpack_from("<H", fmt.donnees)[0]
                if point == 0xFFFF:
                    serie.update(self.aspect(fmt))
                    etiquette = fmt.premier(0x100C)
                    if etiquette:
                        serie["etiquettes"]["serie"] = {"drapeaux": struct.unpack_from("<H", etiquette.donnees)[0]}
                else:
                    serie["points"][str(point + 1)] = self.aspect(fmt)
                    etiquette = fmt.premier(0x100C)
                    if etiquette:
                        serie["etiquettes"][str(point + 1)] = {
                            "drapeaux": struct.unpack_from("<H", etiquette.donnees)[0]}
            series.append(serie)
        # Texts of labels hang on the chart, and name their series and point.
        for texte in self.racine.tous(0x1025):
            lien = texte.premier(0x1027)
            if lien is None or struct.unpack_from("<H", lien.donnees)[0] != 4:
                continue
            numero, point = struct.unpack_from("<HH", lien.donnees, 2)
            if numero >= len(series):
                continue
            cle = "serie" if point == 0xFFFF else str(point + 1)
            entree = series[numero]["etiquettes"].setdefault(cle, {})
            entree["texte"] = self.texte(texte)
            drapeaux = struct.unpack_from("<H", texte.donnees, 24)[0] if len(texte.donnees) > 25 else 0
            entree["valeur"] = bool(drapeaux & 4)
            for source in texte.tous(0x1051):
                cle_format = struct.unpack_from("<H", source.donnees, 4)[0]
                entree["format"] = self.classeur.formats.get(cle_format, str(cle_format))
        return series

    def axes(self):
        axes = []
        for rang, jeu in enumerate(self.racine.tous(0x1041)):
            titres = {}
            for texte in jeu.tous(0x1025):
                lien = texte.premier(0x1027)
                if lien is not None:
                    titres[struct.unpack_from("<H", lien.donnees)[0]] = self.texte(texte)
            for noeud in jeu.tous(0x101D):
                genre = struct.unpack_from("<H", noeud.donnees)[0] + 1
                axe = {"type": genre, "groupe": rang + 1, "titre": titres.get({1: 3, 2: 2}.get(genre))}
                for enfant in noeud.enfants:
                    d = enfant.donnees
                    if enfant.genre == 0x101F:
                        mini, maxi, pas, mineur, croisement, drapeaux = struct.unpack_from("<dddddH", d)
                        axe.update({"minimum": None if drapeaux & 1 else mini,
                                    "maximum": None if drapeaux & 2 else maxi,
                                    "pas": None if drapeaux & 4 else pas,
                                    "pas_mineur": None if drapeaux & 8 else mineur,
                                    "logarithmique": bool(drapeaux & 0x20), "inverse": bool(drapeaux & 0x40),
                                    "croise_au_maximum": bool(drapeaux & 0x80)})
                    elif enfant.genre == 0x1020:
                        drapeaux = struct.unpack_from("<H", d, 6)[0]
                        axe.update({"entre_categories": bool(drapeaux & 1), "croise_au_maximum": bool(drapeaux & 2),
                                    "inverse": bool(drapeaux & 4)})
                    elif enfant.genre == 0x1062:
                        mini, maxi, _, _, _, _, unite, _, drapeaux = struct.unpack_from("<HHHHHHHHH", d)
                        axe.update({"temporel": bool(drapeaux & 0x10), "unite_jours": unite == 0,
                                    "dates_automatiques": bool(drapeaux & 0x80)})
                    elif enfant.genre == 0x104E:
                        cle = struct.unpack_from("<H", d)[0]
                        axe["format"] = self.classeur.formats.get(cle, str(cle))
                    elif enfant.genre == 0x101E:
                        majeures, mineures, place = struct.unpack_from("<BBB", d)
                        drapeaux = struct.unpack_from("<H", d, 24)[0]
                        rotation = struct.unpack_from("<H", d, 28)[0]
                        axe.update({"etiquettes": place, "graduations": [majeures, mineures],
                                    "orientation": {0xFF: "empile"}.get(rotation, rotation if rotation <= 90
                                                                       else 90 - rotation)})
                axes.append(axe)
        return axes

    def decrire(self):
        titre = None
        for texte in self.racine.tous(0x1025):
            lien = texte.premier(0x1027)
            if lien is not None and struct.unpack_from("<H", lien.donnees)[0] == 1:
                titre = self.texte(texte)
        proprietes = self.racine.premier(0x1044)
        trous = {0: "laisses", 1: "zero", 2: "relies"}[proprietes.donnees[2]] if proprietes else None
        legende = any(jeu.tous(0x1014) and any(g.premier(0x1015) for g in jeu.tous(0x1014))
                      for jeu in self.racine.tous(0x1041))
        return {"series": self.series(), "axes": self.axes(), "groupes": self.groupes(), "titre": titre,
                "legende": legende, "trous": trous}


def formes(escher):
    """Names and places of the drawn objects of a sheet, in order, from its Office drawing."""
    trouvees = []

    def parcourir(debut, fin):
        while debut + 8 <= fin:
            version, genre, taille = struct.unpack_from("<HHI", escher, debut)
            corps = debut + 8
            if genre == 0xF004:
                trouvees.append({"nom": None, "cellule": None})
            if version & 0xF == 0xF:
                parcourir(corps, min(corps + taille, fin))
            elif genre == 0xF00B and trouvees:
                complexe = corps + 6 * (version >> 4)
                for i in range(version >> 4):
                    numero, valeur = struct.unpack_from("<HI", escher, corps + 6 * i)
                    if numero & 0x8000:
                        if numero & 0x3FFF == 0x380:
                            trouvees[-1]["nom"] = escher[complexe:complexe + valeur].decode("utf-16-le").rstrip("\0")
                        complexe += valeur
                    if numero & 0x3FFF == 0x3BF:
                        trouvees[-1]["cachee"] = bool(valeur & 2)
            elif genre == 0xF010 and trouvees and taille >= 18:
                _, colonne, _, ligne = struct.unpack_from("<HHHH", escher, corps)
                trouvees[-1]["cellule"] = adresse(ligne, colonne)
            debut = corps + taille

    parcourir(0, len(escher))
    return [f for f in trouvees if f["cellule"]]


def lire_feuille(classeur, debut):
    escher, graphiques, textes, objets = b"", [], [], []
    en_cours, suite = None, None
    for genre, d, profondeur in classeur.enregistrements(debut):
        if profondeur == 2:
            if genre == 0x809:
                en_cours = []
            en_cours.append((genre, d))
            if genre == 0x0A:
                graphiques.append(Graphique(classeur, en_cours))
            continue
        if genre == 0x5D:
            objets.append(struct.unpack_from("<H", d, 4)[0])
        if genre == 0xEC:
            escher += d
        elif genre == 0x1B6:
            textes.append([len(objets) - 1, struct.unpack_from("<H", d, 10)[0], ""])
            suite = textes[-1]
        elif genre == 0x3C and suite is not None and len(suite[2]) < suite[1]:
            suite[2] += d[1:].decode("utf-16-le") if d[0] & 1 else d[1:].decode("latin-1")
        elif genre == 0x3C and suite is None:
            escher += d
    dessins = formes(escher)
    resultat = {"graphiques": [], "textes": {}, "caches": [], "dessins": dessins, "objets": objets}
    cellules = [dessins[i]["cellule"] for i, objet in enumerate(objets) if objet == 5 and i < len(dessins)]
    for i, graphique in enumerate(graphiques):
        lu = graphique.decrire()
        lu["cellule"] = cellules[i] if i < len(cellules) else None
        resultat["graphiques"].append(lu)
    for objet, _, texte in textes:
        if objet < len(dessins):
            resultat["textes"][dessins[objet]["nom"] or f"?{objet}"] = texte
    return resultat


def main():
    classeur = Classeur(sys.argv[1])
    resultat = {}
    for numero, (nom, place) in enumerate(classeur.feuilles, 1):
        resultat[nom] = lire_feuille(classeur, place)
        resultat[nom]["noms"] = {n: classeur.reference(f) for n, feuille, f in classeur.noms if feuille == numero}
    json.dump(resultat, sys.stdout, ensure_ascii=False, indent=1 if "-l" in sys.argv else None)


main()
