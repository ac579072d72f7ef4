#include "capture/VisualisationPrelevement.h"

#include "platform/Saisie.h"
#include "workbook/Feuille.h"

namespace
{
constexpr int LIGNE_ENTETES = 6;
constexpr int HAUTEUR_ENTETES = 950; // hundredths of a millimetre: two lines of text
constexpr int FOND_INTITULES = 33;   // as in the reports

struct Colonne {
    QStringView titre;
    QString TextesLigne::*champ;
    int largeur; // hundredths of a millimetre
    bool numerique = false;
};

const QList<Colonne> &colonnes(FamillePrelevement famille)
{
    static const QList<Colonne> PHYSICO{
        {u"Paramètre", &TextesLigne::parametre, 5500},
        {u"Valeur", &TextesLigne::resultat, 2000, true},
        {u"Code remarque", &TextesLigne::remarque, 2400, true},
        {u"Fraction", &TextesLigne::fraction, 2000, true},
        {u"Commentaires sur l'analyse", &TextesLigne::commentaireAnalyse, 5500},
        {u"Commentaires sur le résultat", &TextesLigne::commentaireResultat, 5500},
        {u"Unité du paramètre", &TextesLigne::unite, 3000},
        {u"Lieu", &TextesLigne::lieu, 3500},
        {u"Seuil de détection", &TextesLigne::seuil, 2800, true},
        {u"Organisme préleveur", &TextesLigne::preleveur, 5800},
        {u"Laboratoire d'analyses", &TextesLigne::laboratoire, 5800},
        {u"Gestionnaire", &TextesLigne::gestionnaire, 5800},
        {u"Réseau de mesure", &TextesLigne::reseau, 5500},
        {u"Protocole de prélèvement", &TextesLigne::protocole, 4000}};
    // One comment for each result, and no place of analysis.
    static const QList<Colonne> PESTICIDES = [] {
        QList<Colonne> liste;
        for (Colonne c : PHYSICO) {
            if (c.champ == &TextesLigne::commentaireAnalyse || c.champ == &TextesLigne::lieu)
                continue;
            if (c.champ == &TextesLigne::commentaireResultat)
                c.titre = u"Commentaires";
            liste << c;
        }
        return liste;
    }();
    return famille == FamillePrelevement::Pesticides ? PESTICIDES : PHYSICO;
}

// A number as a number, unless writing it so would lose a zero at its head.
QVariant cellule(const QString &texte, bool numerique)
{
    if (!numerique || (texte.size() > 1 && texte[0] == u'0' && texte[1].isDigit()))
        return texte;
    const std::optional<double> nombre = Saisie::lireNombre(texte);
    return nombre ? QVariant(*nombre) : QVariant(texte);
}

QVariant heure(const QString &texte)
{
    const QTime lue = QTime::fromString(texte.left(5), QStringLiteral("hh:mm"));
    return lue.isValid() && (texte.size() == 5 || texte.endsWith(QLatin1String(":00"))) ? QVariant(lue)
                                                                                        : QVariant(texte);
}

void ecrireEntete(const Feuille &feuille, const DemandeVisualisation &d)
{
    Plage titre = feuille.plage(QStringLiteral("A1"));
    titre.ecrire(d.famille == FamillePrelevement::Pesticides
                     ? QStringLiteral("LISTE DES MESURES DES PESTICIDES")
                     : QStringLiteral("LISTE DES MESURES PHYSICO-CHIMIQUES"));
    titre.gras(true);
    titre.taillePolice(14);
    feuille.plage(QStringLiteral("B3")).formatNombre(QStringLiteral("@"));
    feuille.plage(QStringLiteral("D3")).formatNombre(QStringLiteral("@"));
    feuille.plage(QStringLiteral("A3:D4"))
        .ecrire(Valeurs{{QStringLiteral("Code Agence :"), d.station, QStringLiteral("Nom :"), d.nomStation},
                        {QStringLiteral("Date :"), d.date, QStringLiteral("Heure :"), heure(d.heure)}});
    feuille.plage(QStringLiteral("B3:B4")).alignementHorizontal(Alignement::Gauche);
    feuille.plage(QStringLiteral("D3:D4")).alignementHorizontal(Alignement::Gauche);
    feuille.plage(QStringLiteral("A3:A4")).gras(true);
    feuille.plage(QStringLiteral("C3:C4")).gras(true);
}
} // namespace

Valeurs VisualisationPrelevement::tableau(const DemandeVisualisation &demande)
{
    const QList<Colonne> &liste = colonnes(demande.famille);
    Valeurs valeurs(1);
    for (const Colonne &c : liste)
        valeurs[0] << c.titre.toString();
    for (const TextesLigne &ligne : demande.lignes) {
        QVector<QVariant> rangee;
        for (const Colonne &c : liste)
            rangee << cellule(ligne.*(c.champ), c.numerique);
        valeurs << rangee;
    }
    return valeurs;
}

VueMesures VisualisationPrelevement::vue(const DemandeVisualisation &demande)
{
    VueMesures vue;
    vue.debutDuNom = demande.famille == FamillePrelevement::Pesticides ? QStringLiteral("Mesures_Phyto_")
                                                                       : QStringLiteral("Mesures_Physico_");
    vue.remplir = [demande](Feuille &feuille) {
        const QList<Colonne> &liste = colonnes(demande.famille);
        for (int i = 0; i < liste.size(); ++i)
            feuille.largeurColonne(i + 1, liste[i].largeur);
        ecrireEntete(feuille, demande);
        const Valeurs valeurs = tableau(demande);
        const auto derniere = static_cast<int>(LIGNE_ENTETES + valeurs.size() - 1);
        const auto largeur = static_cast<int>(liste.size());
        feuille.plage(LIGNE_ENTETES, 1, derniere, largeur).ecrire(valeurs);
        Plage entetes = feuille.plage(LIGNE_ENTETES, 1, LIGNE_ENTETES, largeur);
        entetes.gras(true);
        entetes.renvoiALaLigne(true);
        entetes.alignementVertical(Alignement::Milieu);
        feuille.hauteurLigne(LIGNE_ENTETES, HAUTEUR_ENTETES);
        entetes.fond(FOND_INTITULES);
        entetes.bord(Bord::Bas, TraitBord::Continu);
        MiseEnPage page;
        page.paysage = true;
        page.premiereLigneRepetee = LIGNE_ENTETES;
        page.derniereLigneRepetee = LIGNE_ENTETES;
        page.piedDroite = QStringLiteral("Page &P / &N");
        feuille.mettreEnPage(page);
    };
    return vue;
}
