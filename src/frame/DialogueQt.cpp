#include "frame/DialogueQt.h"

#include "frame/FiltreFichier.h"
#include "platform/Chemins.h"
#include "platform/Ouvrir.h"

#include <QApplication>
#include <QColorDialog>
#include <QDir>
#include <QFileDialog>
#include <QMessageBox>
#include <QPushButton>

namespace
{
// Progress asked for before the main window exists goes nowhere.
class ProgressionMuette final : public Progression
{
public:
    void montrer(const QString & /*titre*/, const QString & /*libelle*/) override {}
    void cacher() override {}
    void libelle(const QString & /*texte*/) override {}
    void maximum(int /*valeur*/) override {}
    void valeur(int /*valeur*/) override {}
    void permettreAnnulation(bool /*oui*/) override {}
    bool annulee() const override { return false; }
};

QMessageBox::Icon iconeQt(Icone icone)
{
    switch (icone) {
    case Icone::Information:
        return QMessageBox::Information;
    case Icone::Question:
        return QMessageBox::Question;
    case Icone::Exclamation:
        return QMessageBox::Warning;
    case Icone::Critique:
        return QMessageBox::Critical;
    case Icone::Aucune:
        break;
    }
    return QMessageBox::NoIcon;
}

QString legende(Reponse reponse)
{
    switch (reponse) {
    case Reponse::OK:
        return QStringLiteral("OK");
    case Reponse::Annuler:
        return QStringLiteral("Annuler");
    case Reponse::Oui:
        return QStringLiteral("&Oui");
    case Reponse::Non:
        return QStringLiteral("&Non");
    }
    return {};
}

QMessageBox::ButtonRole role(Reponse reponse)
{
    switch (reponse) {
    case Reponse::OK:
        return QMessageBox::AcceptRole;
    case Reponse::Oui:
        return QMessageBox::YesRole;
    case Reponse::Non:
        return QMessageBox::NoRole;
    case Reponse::Annuler:
        break;
    }
    return QMessageBox::RejectRole;
}

// Counts the routines that are waiting inside an event loop of ours.
class Attente
{
public:
    explicit Attente(int &compte) : m_compte(compte) { ++m_compte; }
    ~Attente() { --m_compte; }
    Attente(const Attente &) = delete;
    Attente &operator=(const Attente &) = delete;

private:
    int &m_compte;
};

// A box answered under the waiting cursor would look busy: the ordinary one comes back while it shows.
class CurseurNormal
{
public:
    explicit CurseurNormal(bool utile) : m_utile(utile)
    {
        if (m_utile)
            QGuiApplication::setOverrideCursor(Qt::ArrowCursor);
    }
    ~CurseurNormal()
    {
        if (m_utile)
            QGuiApplication::restoreOverrideCursor();
    }
    CurseurNormal(const CurseurNormal &) = delete;
    CurseurNormal &operator=(const CurseurNormal &) = delete;

private:
    bool m_utile;
};

void preparer(QMessageBox &boite, const QString &texte, const QString &titre, Icone icone)
{
    // Plain text: what came from a file is never read as mark-up.
    boite.setTextFormat(Qt::PlainText);
    boite.setWindowTitle(titre);
    boite.setText(texte);
    boite.setIcon(iconeQt(icone));
}
} // namespace

DialogueQt::DialogueQt() : m_progress(*this), m_progress2(*this), m_progress3(*this) {}

DialogueQt::~DialogueQt() = default;

void DialogueQt::message(const QString &texte, const QString &titre, Icone icone)
{
    if (m_cesse)
        return;
    const Attente attente(m_attentes);
    const CurseurNormal curseur(m_sablier);
    QMessageBox boite(parent());
    preparer(boite, texte, titre, icone);
    boite.addButton(QStringLiteral("OK"), QMessageBox::AcceptRole);
    boite.exec();
}

Reponse DialogueQt::question(const QString &texte, const QString &titre, const QList<Reponse> &choix,
                             Reponse defaut, Icone icone)
{
    if (m_cesse)
        return refus(choix);
    const Attente attente(m_attentes);
    const CurseurNormal curseur(m_sablier);
    QMessageBox boite(parent());
    preparer(boite, texte, titre, icone);
    QHash<QAbstractButton *, Reponse> reponses;
    for (const Reponse reponse : choix) {
        QPushButton *bouton = boite.addButton(legende(reponse), role(reponse));
        reponses.insert(bouton, reponse);
        if (reponse == defaut)
            boite.setDefaultButton(bouton);
        if (reponse == refus(choix))
            boite.setEscapeButton(bouton);
    }
    boite.exec();
    return reponses.value(boite.clickedButton(), refus(choix));
}

Reponse DialogueQt::refus(const QList<Reponse> &choix)
{
    for (const Reponse reponse : {Reponse::Non, Reponse::Annuler})
        if (choix.contains(reponse))
            return reponse;
    return choix.value(0, Reponse::OK);
}

namespace
{
// A name typed without an extension takes the default one, and that of the filter once one is chosen; a name that ends
// as another filter wants it follows the choice.
void suivreFiltre(QFileDialog &choix, const QString &defaut)
{
    choix.setDefaultSuffix(defaut);
    QObject::connect(&choix, &QFileDialog::filterSelected, &choix, [&choix, defaut](const QString &filtre) {
        const QString extension = extensionDuFiltre(filtre);
        choix.setDefaultSuffix(extension.isEmpty() ? defaut : extension);
        const QStringList choisis = choix.selectedFiles();
        if (extension.isEmpty() || choisis.isEmpty())
            return;
        const QFileInfo fichier(choisis.constFirst());
        const QStringList filtres = choix.nameFilters();
        const bool dUnAutreFiltre =
            std::any_of(filtres.begin(), filtres.end(), [&fichier](const QString &autre) {
                return extensionDuFiltre(autre).compare(fichier.suffix(), Qt::CaseInsensitive) == 0;
            });
        if (!fichier.suffix().isEmpty() && dUnAutreFiltre && !fichier.isDir())
            choix.selectFile(fichier.completeBaseName() + u'.' + extension);
    });
}
} // namespace

std::optional<QString> DialogueQt::choisirFichier(const DemandeFichier &demande)
{
    if (m_cesse)
        return std::nullopt;
    const Attente attente(m_attentes);
    const CurseurNormal curseur(m_sablier);
    QString dossier = Chemins::versHote(demande.dossierInitial);
    if (dossier.isEmpty() || !QFileInfo(dossier).isDir())
        dossier = QDir::homePath();

    QFileDialog choix(parent(), demande.titre, dossier);
    choix.setOption(QFileDialog::HideNameFilterDetails);
    choix.setNameFilters(filtresQt(demande.filtre));
    choix.setAcceptMode(demande.enregistrer ? QFileDialog::AcceptSave : QFileDialog::AcceptOpen);
    choix.setFileMode(demande.enregistrer ? QFileDialog::AnyFile : QFileDialog::ExistingFile);
    choix.setLabelText(QFileDialog::Accept,
                       demande.enregistrer ? QStringLiteral("&Enregistrer") : QStringLiteral("&Ouvrir"));
    choix.setLabelText(QFileDialog::Reject, QStringLiteral("Annuler"));
    choix.setLabelText(QFileDialog::FileName, QStringLiteral("&Nom du fichier :"));
    choix.setLabelText(QFileDialog::FileType, QStringLiteral("Type de fichier :"));
    choix.resize(820, 500);
    choix.setLabelText(QFileDialog::LookIn, QStringLiteral("Chercher dans :"));
    if (demande.enregistrer)
        suivreFiltre(choix, demande.extensionDefaut);
    if (!demande.nomPropose.isEmpty())
        choix.selectFile(demande.nomPropose);
    if (choix.exec() != QDialog::Accepted || choix.selectedFiles().isEmpty())
        return std::nullopt;
    return choix.selectedFiles().constFirst();
}

std::optional<Couleur> DialogueQt::choisirCouleur(const Couleur &initiale)
{
    if (m_cesse)
        return std::nullopt;
    const Attente attente(m_attentes);
    const CurseurNormal curseur(m_sablier);
    const QColor choisie = QColorDialog::getColor(QColor(initiale.r, initiale.g, initiale.b), parent(),
                                                  QStringLiteral("Choisissez une couleur"));
    if (!choisie.isValid())
        return std::nullopt;
    return Couleur{choisie.red(), choisie.green(), choisie.blue()};
}

bool DialogueQt::ouvrirDocument(const QString &cheminHote)
{
    return !m_cesse && ouvrirAvecSonApplication(cheminHote);
}

Progression &DialogueQt::progression(FenetreProgression fenetre)
{
    static ProgressionMuette muette;
    switch (fenetre) {
    case FenetreProgression::FProgress:
        return m_progress;
    case FenetreProgression::FProgress2:
        return m_progress2;
    case FenetreProgression::FProgress3:
        return m_progress3;
    case FenetreProgression::Principale:
        break;
    }
    return m_principale ? *m_principale : muette;
}

void DialogueQt::ceder()
{
    const Attente attente(m_attentes);
    QCoreApplication::processEvents();
}

void DialogueQt::sablier(bool oui)
{
    if (oui == m_sablier)
        return;
    m_sablier = oui;
    if (oui)
        QGuiApplication::setOverrideCursor(Qt::WaitCursor);
    else
        QGuiApplication::restoreOverrideCursor();
}

void DialogueQt::definirFenetre(QWidget *fenetre, Progression *principale)
{
    m_fenetre = fenetre;
    m_principale = principale;
}

void DialogueQt::cesser()
{
    m_cesse = true;
    // A box that is open is closed as by its refusal; a wait window, which cannot be refused, is hidden.
    const QWidgetList fenetres = QApplication::topLevelWidgets();
    for (QWidget *fenetre : fenetres) {
        auto *boite = qobject_cast<QDialog *>(fenetre);
        if (!boite || !boite->isVisible())
            continue;
        if (qobject_cast<FenetreAttente *>(boite))
            boite->hide();
        else if (boite->isModal())
            boite->done(QDialog::Rejected);
    }
}

QWidget *DialogueQt::parent() const
{
    if (QWidget *modale = QApplication::activeModalWidget())
        return modale;
    if (QWidget *active = QApplication::activeWindow())
        return active;
    return m_fenetre;
}
