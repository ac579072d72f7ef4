#include "analysis/ExportDonneesBrutes.h"

#include "platform/Chemins.h"
#include "platform/Dialogue.h"
#include "workbook/CoursRapport.h"
#include "workbook/SauvegardeLongue.h"
#include "workbook/Tableur.h"

#include <algorithm>
#include <array>
#include <QScopeGuard>

namespace
{
const QString NATURE = QStringLiteral("Données brutes");
const QString NOM_FEUILLE = QStringLiteral("Données brutes");
constexpr int FOND_TITRES = 15; // light grey
constexpr int CENTIEMES_MM_PAR_CARACTERE = 200;

bool estXls(const QString &chemin)
{
    return !chemin.endsWith(QLatin1String(".xlsx"), Qt::CaseInsensitive) &&
           !chemin.endsWith(QLatin1String(".ods"), Qt::CaseInsensitive);
}

void preparerFeuille(Feuille &feuille, const ExportDonneesBrutes::Feuillet &feuillet)
{
    Valeurs titres(1);
    for (const ColonneBrute colonne : ColonnesBrutes::toutes())
        titres[0] << ColonnesBrutes::titre(colonne);
    Plage entete = feuille.plage(1, 1, 1, NOMBRE_COLONNES_BRUTES);
    entete.ecrire(titres);
    entete.gras(true);
    entete.fond(FOND_TITRES);
    const int derniere = static_cast<int>(feuillet.nombre) + 1;
    // Before the values: cells that have a format of date already are not given one each.
    const auto formater = [&](ColonneBrute colonne, const QString &format) {
        const int rang = static_cast<int>(colonne) + 1;
        Plage cellules = feuille.plage(2, rang, derniere, rang);
        cellules.formatNombre(format);
        cellules.alignementHorizontal(Alignement::Centre);
    };
    formater(ColonneBrute::Date, QStringLiteral("dd/mm/yyyy"));
    formater(ColonneBrute::Heure, QStringLiteral("hh:mm"));
    for (const ColonneBrute colonne : ColonnesBrutes::toutes()) {
        const int rang = static_cast<int>(colonne) + 1;
        if (ColonnesBrutes::aDroite(colonne))
            feuille.cellule(1, rang).alignementHorizontal(Alignement::Droite);
        else if (colonne == ColonneBrute::Date || colonne == ColonneBrute::Heure)
            feuille.cellule(1, rang).alignementHorizontal(Alignement::Centre);
    }
    MiseEnPage page;
    page.paysage = true;
    page.premiereLigneRepetee = page.derniereLigneRepetee = 1;
    page.piedCentre = QStringLiteral("&P / &N");
    feuille.mettreEnPage(page);
    constexpr qsizetype MARGE = 2; // characters
    for (const ColonneBrute colonne : ColonnesBrutes::toutes()) {
        const qsizetype caracteres = MARGE + std::max<qsizetype>(ColonnesBrutes::largeur(colonne),
                                                                 ColonnesBrutes::titre(colonne).size());
        feuille.largeurColonne(static_cast<int>(colonne) + 1,
                               static_cast<int>(caracteres) * CENTIEMES_MM_PAR_CARACTERE);
    }
}

// First and last columns of each run whose cells have one format.
constexpr std::array<std::pair<ColonneBrute, ColonneBrute>, 4> COLONNES_D_UN_FORMAT{
    {{ColonneBrute::CodeStation, ColonneBrute::Station},
     {ColonneBrute::Date, ColonneBrute::Date},
     {ColonneBrute::Heure, ColonneBrute::Heure},
     {ColonneBrute::CodeParametre, ColonneBrute::Reseaux}}};

void ecrireBloc(const Feuille &feuille, int premiereLigne, const QList<LigneBrute> &lignes,
                ColonneBrute gauche, ColonneBrute droite)
{
    const int premiere = static_cast<int>(gauche);
    const int derniere = static_cast<int>(droite);
    Valeurs valeurs;
    valeurs.reserve(lignes.size());
    for (const LigneBrute &ligne : lignes) {
        QVector<QVariant> cellules;
        cellules.reserve(derniere - premiere + 1);
        for (int colonne = premiere; colonne <= derniere; ++colonne)
            cellules << ligne.valeur(static_cast<ColonneBrute>(colonne));
        valeurs << cellules;
    }
    feuille
        .plage(premiereLigne, premiere + 1, premiereLigne + static_cast<int>(lignes.size()) - 1, derniere + 1)
        .ecrire(valeurs);
}

// False once the user has given up.
bool ecrireFeuille(Feuille &feuille, const ExportDonneesBrutes::Feuillet &feuillet,
                   LignesDonneesBrutes &lignes, Progression &avancement)
{
    constexpr qsizetype LIGNES_PAR_BLOC = 1000; // some tens of milliseconds
    preparerFeuille(feuille, feuillet);
    for (qsizetype debut = 0; debut < feuillet.nombre; debut += LIGNES_PAR_BLOC) {
        if (avancement.annulee())
            return false;
        const qsizetype nombre = std::min(LIGNES_PAR_BLOC, feuillet.nombre - debut);
        const QList<LigneBrute> lues = lignes.lire(feuillet.premiere + debut, nombre);
        // Columns of one format at a time: where formats are mixed, each block would have to ask for them cell by cell.
        for (const auto &[gauche, droite] : COLONNES_D_UN_FORMAT)
            ecrireBloc(feuille, static_cast<int>(debut) + 2, lues, gauche, droite);
        avancement.valeur(static_cast<int>(feuillet.premiere + debut + nombre));
    }
    return true;
}

bool ecrireClasseur(Classeur &classeur, LignesDonneesBrutes &lignes,
                    const QList<ExportDonneesBrutes::Feuillet> &feuillets, Progression &avancement)
{
    for (qsizetype i = 0; i < feuillets.size(); ++i) {
        Feuille feuille = i == 0 ? classeur.feuille(1) : classeur.ajouterFeuille(feuillets[i].nom);
        if (i == 0)
            feuille.renommer(feuillets[i].nom);
        if (!ecrireFeuille(feuille, feuillets[i], lignes, avancement))
            return false;
    }
    return true;
}
// The workbook, written and saved under its name. False once the user has given up; nothing is then there.
bool produire(const ExportDonneesBrutes::Services &services, const DataEnvironment1 &donnees,
              const std::shared_ptr<const JeuDonneesBrutes> &jeu, const QString &chemin,
              Progression &avancement)
{
    LignesDonneesBrutes lignes(donnees, jeu);
    const std::unique_ptr<Classeur> classeur = services.tableur.ajouter();
    classeur->figerHauteurs(); // every row has one line
    const qsizetype parFeuille = ExportDonneesBrutes::lignesParFeuille(chemin);
    if (!ecrireClasseur(*classeur, lignes, ExportDonneesBrutes::repartir(jeu->nombre(), parFeuille),
                        avancement))
        return false;
    avancement.libelle(QStringLiteral("Enregistrement du classeur"));
    avancement.maximum(0);
    const auto ceder = [&] {
        // Nothing else ends a save that has begun.
        if (avancement.annulee())
            services.tableur.tuer();
        services.dialogue.ceder();
    };
    constexpr qsizetype LIGNES_PAR_MS = 1; // at the least, on a slow machine
    const auto delaiMs = static_cast<int>(DelaisTableur().fichier + jeu->nombre() / LIGNES_PAR_MS);
    try {
        SauvegardeLongue::enregistrerSous(*classeur, chemin, {delaiMs, ceder});
        classeur->fermer();
    } catch (const ErreurTableur &) {
        if (!avancement.annulee())
            throw;
        return false;
    }
    return true;
}
} // namespace

qsizetype ExportDonneesBrutes::lignesParFeuille(const QString &chemin)
{
    return estXls(chemin) ? 65'535 : 1'048'575;
}

QList<ExportDonneesBrutes::Feuillet> ExportDonneesBrutes::repartir(qsizetype nombre, qsizetype parFeuille)
{
    if (nombre <= parFeuille)
        return {{NOM_FEUILLE, 0, nombre}};
    QList<Feuillet> feuillets;
    for (qsizetype premiere = 0; premiere < nombre; premiere += parFeuille)
        feuillets << Feuillet{QStringLiteral("%1 %2").arg(NOM_FEUILLE).arg(feuillets.size() + 1), premiere,
                              std::min(parFeuille, nombre - premiere)};
    return feuillets;
}

QString ExportDonneesBrutes::avertissement(qsizetype nombre, const QString &chemin)
{
    const qsizetype parFeuille = lignesParFeuille(chemin);
    const qsizetype feuilles = repartir(nombre, parFeuille).size();
    if (feuilles < 2)
        return {};
    QString texte =
        QStringLiteral("%1 résultats sont à exporter, et une feuille de ce classeur en contient %2 "
                       "au plus : ils seront répartis sur %3 feuilles.")
            .arg(nombreEntierFrancais(nombre), nombreEntierFrancais(parFeuille),
                 nombreEntierFrancais(feuilles));
    if (estXls(chemin))
        texte += QStringLiteral("\nPour en mettre davantage sur une feuille, répondez Non et choisissez le "
                                "format .xlsx ; pour en exporter moins, utilisez les filtres.");
    else
        texte += QStringLiteral("\nPour en exporter moins, répondez Non et utilisez les filtres.");
    return texte + QStringLiteral("\nVoulez-vous continuer ?");
}

bool ExportDonneesBrutes::exporter(const Services &services, const DataEnvironment1 &donnees,
                                   const std::shared_ptr<const JeuDonneesBrutes> &jeu)
{
    if (services.etat.enCours() || !jeu || jeu->nombre() == 0)
        return false;
    services.tableur.demarrerEnAvance(); // ready by the time that a name is given
    DemandeFichier demande;
    demande.titre = QStringLiteral("Saisissez le nom du fichier à créer");
    demande.filtre = QStringLiteral("Excel (*.xls)|*.xls|Excel 2007 et suivants (*.xlsx)|*.xlsx|"
                                    "OpenDocument (*.ods)|*.ods");
    demande.dossierInitial = services.dossiers.dossier(NATURE);
    if (demande.dossierInitial.isEmpty())
        demande.dossierInitial = QString::fromUtf16(Chemins::EXPORT);
    demande.nomPropose = QStringLiteral("donnees_brutes.xls");
    demande.extensionDefaut = QStringLiteral("xls");
    demande.enregistrer = true;
    const std::optional<QString> choisi = services.dialogue.choisirFichier(demande);
    if (!choisi)
        return false;
    services.dossiers.retenir(NATURE, Chemins::dossier(*choisi));
    const QString chemin = Chemins::versHote(*choisi);
    const QString question = avertissement(jeu->nombre(), chemin);
    if (!question.isEmpty() &&
        services.dialogue.question(question, QStringLiteral("Attention"), {Reponse::Oui, Reponse::Non},
                                   Reponse::Oui, Icone::Question) != Reponse::Oui)
        return false;

    services.etat.definir(true);
    Progression &avancement = services.dialogue.progression(FenetreProgression::Principale);
    avancement.montrer(QString(), QStringLiteral("Export des données brutes"));
    avancement.maximum(static_cast<int>(jeu->nombre()));
    avancement.permettreAnnulation(true);
    services.tableur.definirAttente([&services] { services.dialogue.ceder(); });
    const auto rendre = qScopeGuard([&] {
        services.tableur.definirAttente({});
        avancement.permettreAnnulation(false);
        avancement.cacher();
        services.etat.definir(false);
    });

    if (!produire(services, donnees, jeu, chemin, avancement)) {
        services.dialogue.message(
            QStringLiteral("L'export est abandonné : aucun fichier n'a été créé ni remplacé."),
            QStringLiteral("Export des données brutes"), Icone::Information);
        return false;
    }
    avancement.cacher();
    services.dialogue.message(jeu->nombre() == 1
                                  ? QStringLiteral("L'export est terminé : 1 résultat écrit.")
                                  : QStringLiteral("L'export est terminé : %1 résultats écrits.")
                                        .arg(nombreEntierFrancais(jeu->nombre())),
                              QStringLiteral("Export des données brutes"), Icone::Information);
    services.dialogue.ouvrirDocument(chemin);
    return true;
}
