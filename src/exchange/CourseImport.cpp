#include "exchange/CourseImport.h"

#include "exchange/ArretImport.h"
#include "exchange/CelluleImport.h"
#include "exchange/LecteurLignes.h"
#include "exchange/LigneExcel.h"
#include "exchange/M_Test_OVRA.h"
#include "frame/Session.h"
#include "platform/Erreur.h"
#include "platform/FichierLisible.h"

#include <algorithm>

namespace
{
constexpr int PREMIERE_LIGNE = 2;

class Course
{
public:
    Course(Session &session, const TravailImport &travail)
        : m_session(session), m_import(session.importSession), m_travail(travail),
          m_progression(session.dialogue.progression(FenetreProgression::FProgress))
    {
    }
    ~Course() { lacher(); }
    Course(const Course &) = delete;
    Course &operator=(const Course &) = delete;

    IssueImport executer();

private:
    std::unique_ptr<Classeur> ouvrir();
    bool testerFormat(const Feuille &feuille);
    IssueImport parcourir(const Feuille &feuille);
    IssueImport arreter(const ArretImport &arret, int ligne);
    IssueImport interrompre(int ligne);
    IssueImport achever();
    void dire(const QString &texte, const QString &titre, Icone icone);
    // Progress window away, cursor back: before any box, and at every way out.
    void lacher();

    Session &m_session;
    ImportSession &m_import;
    const TravailImport &m_travail;
    Progression &m_progression;
};

void Course::lacher()
{
    m_progression.permettreAnnulation(false);
    m_progression.cacher();
    m_session.dialogue.sablier(false);
}

void Course::dire(const QString &texte, const QString &titre, Icone icone)
{
    lacher();
    m_session.dialogue.message(texte, titre, icone);
}

std::unique_ptr<Classeur> Course::ouvrir()
{
    verifierLisible(m_import.FichierImport);
    return m_session.tableur.ouvrir(m_import.FichierImport, true);
}

bool Course::testerFormat(const Feuille &feuille)
{
    const int resultat =
        M_Test_OVRA::testerFeuille(m_session, feuille, m_travail.disposition, m_import.ColonnesExcel);
    m_import.FormatTeste = resultat == M_Test_OVRA::FORMAT_RECONNU;
    if (!m_import.FormatTeste)
        dire(QStringLiteral("Ce fichier n'est pas au format adapté"), QStringLiteral("Attention"),
             Icone::Exclamation);
    return m_import.FormatTeste;
}

IssueImport Course::executer()
{
    try {
        m_progression.montrer(m_import.FormatTeste ? QStringLiteral("Import des données du fichier Excel")
                                                   : QStringLiteral("Test du format du fichier Excel"),
                              QStringLiteral("Ouverture du fichier « %1 »").arg(m_import.TitreImport));
        m_session.dialogue.sablier(true);
        // Opened once for the check and the reading.
        const std::unique_ptr<Classeur> classeur = ouvrir();
        const Feuille feuille = classeur->feuille(1);
        if (!m_import.FormatTeste && !testerFormat(feuille))
            return {IssueImport::Fin::Arretee, 0, {}, {}};
        return parcourir(feuille);
    } catch (const Erreur &erreur) {
        dire(QStringLiteral(
                 "Une erreur est survenue au cours de l'import. Votre fichier contient peut-être des "
                 "redondances ou est peut-être en cours d'utilisation. \n") +
                 erreur.numeroEtDescription(),
             QStringLiteral("Erreur"), Icone::Critique);
        return {IssueImport::Fin::Arretee, 0, {}, {}};
    }
}

IssueImport Course::parcourir(const Feuille &feuille)
{
    m_progression.montrer(
        QStringLiteral("Import des données du fichier Excel"),
        QStringLiteral("Enregistrement des mesures du fichier « %1 »").arg(m_import.TitreImport));
    m_progression.permettreAnnulation(true);
    const TravailImport::Etapes etapes = m_travail.preparer();

    const QStringList entetes = M_Test_OVRA::entetes(feuille);
    const int largeur =
        std::max(static_cast<int>(entetes.size()),
                 *std::max_element(m_import.ColonnesExcel.begin(), m_import.ColonnesExcel.end()));
    LecteurLignes lecteur(feuille, largeur);
    const int colonneCle = m_import.ColonnesExcel.at(static_cast<std::size_t>(m_travail.champCle));
    if (m_import.LigneMaxProgression == 0)
        m_import.LigneMaxProgression = lecteur.premiereLignePaireVide(colonneCle);
    m_progression.maximum(m_import.LigneMaxProgression);

    int ligne = PREMIERE_LIGNE;
    if (m_import.LigneReprise > PREMIERE_LIGNE) {
        ligne = m_import.LigneReprise;
        m_progression.libelle(QStringLiteral("Reprise à la ligne %1").arg(ligne));
    }
    m_import.LigneReprise = 0;

    for (;; ++ligne) {
        m_progression.valeur(ligne);
        if (m_progression.annulee())
            return interrompre(ligne);
        const QVector<QVariant> &cellules = lecteur.ligne(ligne);
        if (CelluleImport::texte(cellules.value(colonneCle - 1)).isEmpty())
            return achever();
        try {
            etapes(LigneExcel(cellules, ligne, m_import.ColonnesExcel, entetes), m_import.RemplacerTout);
        } catch (const ArretImport &arret) {
            return arreter(arret, ligne);
        }
        ++m_import.NbEnregistres;
    }
}

IssueImport Course::arreter(const ArretImport &arret, int ligne)
{
    if (arret.genre == ArretImport::Genre::Faute) {
        dire(arret.texte, QStringLiteral("Erreur"), Icone::Exclamation);
        return {IssueImport::Fin::Arretee, 0, {}, {}};
    }
    m_import.LigneReprise = ligne;
    if (arret.genre == ArretImport::Genre::DejaImporte)
        return {IssueImport::Fin::Remplacement, 0, {}, {}};
    m_import.typeElement = arret.type;
    m_import.ElementNom = arret.nom;
    m_import.ElementCode = arret.code;
    m_import.ElementUnite = arret.unite;
    m_import.ElementParametre = arret.parametre;
    switch (arret.genre) {
    case ArretImport::Genre::ElementVide:
        return {IssueImport::Fin::Choix, 1, arret.libelleAction, {}};
    case ArretImport::Genre::UniteRefusee:
        return {IssueImport::Fin::ChoixUnite, 0, {}, {}};
    default:
        return {IssueImport::Fin::Choix, 2, arret.libelleAction,
                arret.code.isEmpty() ? arret.nom : arret.code + QStringLiteral(" : ") + arret.nom};
    }
}

IssueImport Course::interrompre(int ligne)
{
    m_import.LigneReprise = ligne;
    m_import.FichierInterrompu = m_import.FichierImport;
    dire(
        QStringLiteral("L'import a été interrompu à la ligne %1. Les mesures des lignes précédentes sont "
                       "enregistrées.\nRecommencez l'import du même fichier pour le reprendre à cette ligne.")
            .arg(ligne),
        QStringLiteral("Import interrompu"), Icone::Information);
    return {IssueImport::Fin::Arretee, 0, {}, {}};
}

IssueImport Course::achever()
{
    const int nombre = m_import.NbEnregistres;
    QString texte = m_travail.phrases.aucune;
    if (nombre > 0)
        texte = QStringLiteral("L'import du fichier Excel vers la base de données est achevé.\n") +
                QString::number(nombre) + (nombre == 1 ? m_travail.phrases.une : m_travail.phrases.plusieurs);
    dire(texte, QStringLiteral("Fin de l'import"), Icone::Information);
    m_import.FormatTeste = false;
    m_import.LigneMaxProgression = 0;
    m_import.LigneReprise = 0;
    m_import.NbEnregistres = 0;
    m_import.RemplacerTout = false;
    return {IssueImport::Fin::Terminee, 0, {}, {}};
}
} // namespace

IssueImport executerImport(Session &session, const TravailImport &travail)
{
    return Course(session, travail).executer();
}
