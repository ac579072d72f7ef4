#include "workbook/CoursRapport.h"

#include "platform/Chemins.h"

#include <QFile>
#include <QFileInfo>
#include <QScopeGuard>

namespace
{
enum Numero { ModeleEcrase = 60 };

const QString NATURE = QStringLiteral("Document Excel");

// A failure inside the filling, as apart from one of the spreadsheet or of the files.
struct EchecRemplissage {
    QString description;
};

template <class F> std::invoke_result_t<F> commeRemplissage(F &&partie)
{
    try {
        return partie();
    } catch (const ErreurTableur &) {
        throw;
    } catch (const std::exception &e) {
        throw EchecRemplissage{QString::fromUtf8(e.what())};
    }
}
} // namespace

QString DossiersRecents::dossier(const QString &nature) const
{
    return m_dossiers.value(nature);
}

void DossiersRecents::retenir(const QString &nature, const QString &dossier)
{
    m_dossiers.insert(nature, dossier);
}

void EtatRapport::definir(bool enCours)
{
    if (enCours == m_enCours)
        return;
    m_enCours = enCours;
    Q_EMIT change(enCours);
}

CoursRapport::CoursRapport(Dialogue &dialogue, Tableur &tableur, DossiersRecents &dossiers, EtatRapport &etat)
    : m_dialogue(dialogue), m_tableur(tableur), m_dossiers(dossiers), m_etat(etat)
{
}

std::optional<QString> CoursRapport::demanderNom()
{
    DemandeFichier demande;
    demande.titre = QStringLiteral("Saisissez le nom du fichier à créer");
    demande.filtre = QStringLiteral("Excel (*.xls)|*.xls");
    demande.dossierInitial = m_dossiers.dossier(NATURE);
    demande.extensionDefaut = QStringLiteral("xls");
    demande.enregistrer = true;
    std::optional<QString> chemin = m_dialogue.choisirFichier(demande);
    if (chemin)
        m_dossiers.retenir(NATURE, Chemins::dossier(*chemin));
    return chemin;
}

bool CoursRapport::executer(const CommandeRapport &commande)
{
    if (m_etat.enCours())
        return false;
    const std::optional<QString> chemin = demanderNom();
    if (!chemin)
        return false;

    m_etat.definir(true);
    const auto fin = qScopeGuard([this] { m_etat.definir(false); });
    Progression &avancement = m_dialogue.progression(FenetreProgression::Principale);
    avancement.montrer(QString(), QStringLiteral("Ouverture du modèle"));
    avancement.maximum(0);
    try {
        return produire(commande, *chemin);
    } catch (const EchecRemplissage &echec) {
        avancement.cacher();
        m_dialogue.message(QStringLiteral("Une erreur s'est produite en cours de traitement : \n") +
                               echec.description,
                           QStringLiteral("Erreur"), Icone::Critique);
    } catch (const Erreur &erreur) {
        avancement.cacher();
        // The box's words are given; the reason is told where it can be read beside them and after them.
        avancement.montrer(QString(), erreur.description());
        avancement.maximum(0);
        m_dialogue.message(QStringLiteral("Erreur de l'application"), QStringLiteral("Attention"),
                           Icone::Critique);
    }
    return false;
}

// The opening comes first in the order of things: where both fail, its failure is told.
std::unique_ptr<Classeur> CoursRapport::ouvrirEtPreparer(const CommandeRapport &commande,
                                                         const QString &modele)
{
    OuvertureEnCours ouverture = m_tableur.commencerOuverture(modele);
    std::exception_ptr echec;
    try {
        if (commande.preparer)
            commeRemplissage(commande.preparer);
    } catch (...) {
        echec = std::current_exception();
    }
    std::unique_ptr<Classeur> classeur = ouverture.attendre();
    if (echec)
        std::rethrow_exception(echec);
    return classeur;
}

bool CoursRapport::produire(const CommandeRapport &commande, const QString &chemin)
{
    const QString modele = Chemins::versHote(QString::fromUtf16(Chemins::MODELES) + commande.modele);
    const QString remplace = QFileInfo(chemin).canonicalFilePath(); // empty when it replaces nothing
    if (!remplace.isEmpty() && remplace == QFileInfo(modele).canonicalFilePath())
        throw Erreur(ModeleEcrase,
                     QStringLiteral("Le fichier à créer est le modèle lui-même : choisissez un autre nom."));

    m_tableur.definirAttente([this] { m_dialogue.ceder(); });
    const auto finAttente = qScopeGuard([this] { m_tableur.definirAttente({}); });
    const std::unique_ptr<Classeur> classeur = ouvrirEtPreparer(commande, modele);
    classeur->reprendreSous(chemin);
    // From here on the file is ours: gone with the report unless that ends well.
    auto effacement = qScopeGuard([&chemin] { QFile::remove(chemin); });

    const int mesures = commeRemplissage([&] { return commande.remplir(*classeur); });
    classeur->enregistrerEtFermer();
    m_dialogue.progression(FenetreProgression::Principale).cacher();
    if (mesures == 0) {
        if (!commande.avertissementVide.isEmpty())
            m_dialogue.message(commande.avertissementVide, QStringLiteral("Attention"), Icone::Exclamation);
        return false;
    }
    effacement.dismiss();

    const bool rapport = commande.fin == FinRapport::Rapport;
    QString texte = rapport ? QStringLiteral("L'édition du rapport est terminée. ")
                            : QStringLiteral("La création du graphique est terminée. ");
    if (!commande.texteFin.isEmpty())
        texte = commande.texteFin;
    m_dialogue.message(texte,
                       rapport ? QStringLiteral("Fin de création") : QStringLiteral("Fin du graphique"),
                       Icone::Information);
    m_dialogue.ouvrirDocument(chemin);
    return true;
}
