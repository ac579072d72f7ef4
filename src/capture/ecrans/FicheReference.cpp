#include "capture/ecrans/FicheReference.h"

#include "capture/SuppressionFiche.h"
#include "platform/Dialogue.h"
#include "widgets/ListeFiltree.h"
#include "widgets/ZoneCombo.h"
#include "widgets/ZoneComboLibre.h"
#include "widgets/ZoneLibelle.h"
#include "widgets/ZoneMemo.h"

#include <QCloseEvent>
#include <QKeyEvent>
#include <QLineEdit>
#include <QTimer>

FicheReference::FicheReference(Session &session, Cadre &cadre, const DescriptionFiche &description)
    : Ecran(session, cadre), m_description(description), m_mode(session.ModeSaisie),
      m_origine(session.OrigineSaisie)
{
}

FicheReference::~FicheReference()
{
    // A field that loses the focus while the window goes must not call what has gone already.
    const auto enfants = findChildren<QWidget *>();
    for (QWidget *enfant : enfants)
        disconnect(enfant, nullptr, this, nullptr);
}

QWidget *FicheReference::controle(const QString &nom) const
{
    return findChild<QWidget *>(nom);
}

void FicheReference::preparerFiche()
{
    for (const char *nom : {"cmb_code", "cmb_nom"}) {
        QWidget *cles = controle(QString::fromLatin1(nom));
        if (auto *combo = qobject_cast<ZoneCombo *>(cles); combo && !m_cles)
            m_cles = combo;
        else if (auto *libre = qobject_cast<ZoneComboLibre *>(cles); libre && !m_clesLibres)
            m_clesLibres = libre;
    }
    m_valider = findChild<QPushButton *>(QStringLiteral("cmd_valider"));
    m_suppr = findChild<QPushButton *>(QStringLiteral("cmd_suppr"));
    auto *annul = findChild<QPushButton *>(QStringLiteral("cmd_annul"));
    Q_ASSERT((m_cles || m_clesLibres) && m_valider && m_suppr && annul);

    for (const ChampFiche &champ : m_description.champs)
        brancherChamp(champ);
    if (m_cles)
        connect(m_cles, &ZoneCombo::choixChange, this, &FicheReference::choisirCle);
    if (m_clesLibres)
        connect(m_clesLibres, &ZoneComboLibre::texteChoisi, this, &FicheReference::suivreCle);
    connect(m_valider, &QPushButton::clicked, this, [this] { executer([this] { valider(); }); });
    connect(m_suppr, &QPushButton::clicked, this, [this] { executer([this] { supprimer(); }); });
    connect(annul, &QPushButton::clicked, this, [this] { executer([this] { annuler(); }); });
    // Giving up a typing that is wrong is no reason for a message.
    annul->setProperty("sansVerification", true);
    preparer(m_valider, findChild<QPushButton *>(QStringLiteral("cmd_fermer")));
    remplirListes();
    remplirCles();
    vider();
}

void FicheReference::brancherChamp(const ChampFiche &champ)
{
    QWidget *widget = controle(champ.controle);
    if (!widget)
        qFatal("no control %s", qPrintable(champ.controle));
    if (auto *zone = dynamic_cast<ZoneReglee *>(widget)) {
        zone->definirRegle([this, champ](const QString &texte) -> std::optional<ZoneReglee::Refus> {
            if (const auto refus = ReglesFiche::refusChamp(m_description.table, champ, texte))
                return ZoneReglee::Refus{refus->message, refus->titre};
            return std::nullopt;
        });
    }
    if (champ.colonne != m_description.critere)
        return;
    if (auto *ligne = qobject_cast<QLineEdit *>(widget))
        connect(ligne, &QLineEdit::editingFinished, this, &FicheReference::suivreCle);
    if (auto *combo = qobject_cast<ZoneCombo *>(widget))
        connect(combo, &ZoneCombo::choixChange, this, &FicheReference::suivreCle);
}

QString FicheReference::texte(const ChampFiche &champ) const
{
    QWidget *widget = controle(champ.controle);
    if (auto *combo = qobject_cast<ZoneCombo *>(widget))
        return combo->code();
    if (auto *libre = qobject_cast<ZoneComboLibre *>(widget))
        return libre->texte();
    if (auto *memo = qobject_cast<ZoneMemo *>(widget))
        return memo->toPlainText();
    auto *ligne = qobject_cast<QLineEdit *>(widget);
    return ligne ? ligne->text() : QString();
}

void FicheReference::fixer(const ChampFiche &champ, const QString &texte)
{
    QWidget *widget = controle(champ.controle);
    if (auto *combo = qobject_cast<ZoneCombo *>(widget)) {
        ListeChoix lignes = m_listes.value(combo);
        const bool connue = std::any_of(lignes.cbegin(), lignes.cend(),
                                        [&](const Choix &choix) { return choix.code == texte; });
        if (!texte.isEmpty() && !connue)
            lignes.append({texte, texte});
        combo->remplir(lignes);
        combo->choisir(texte);
    } else if (auto *libre = qobject_cast<ZoneComboLibre *>(widget)) {
        libre->fixer(texte);
    } else if (auto *memo = qobject_cast<ZoneMemo *>(widget)) {
        memo->setPlainText(texte);
    } else if (auto *ligne = qobject_cast<QLineEdit *>(widget)) {
        ligne->setText(texte);
        ligne->setCursorPosition(0);
    }
}

ValeursFiche FicheReference::valeurs() const
{
    ValeursFiche lues;
    for (const ChampFiche &champ : m_description.champs)
        lues.insert(champ.colonne, texte(champ));
    return lues;
}

QStringList FicheReference::saisie() const
{
    QStringList textes;
    for (const ChampFiche &champ : m_description.champs)
        textes << texte(champ);
    const LiensFiche choisis = liens();
    for (const LienFiche &lien : m_description.liens) {
        QStringList codes = choisis.value(lien.table);
        codes.sort();
        textes << codes.join(u'\n');
    }
    return textes + saisieDependante();
}

void FicheReference::retenirSaisie()
{
    m_saisieConnue = saisie();
    montrerEtat();
}

bool FicheReference::modifiee() const
{
    return saisie() != m_saisieConnue;
}

// Whether what is typed may go.
bool FicheReference::abandonner()
{
    if (!modifiee())
        return true;
    return session().dialogue.question(
               QStringLiteral(
                   "Les informations saisies ne sont pas enregistrées. Voulez-vous les abandonner?"),
               QStringLiteral("Attention"), {Reponse::Oui, Reponse::Non}, Reponse::Non,
               Icone::Exclamation) == Reponse::Oui;
}

void FicheReference::remplirCombo(ZoneCombo *combo, const ListeChoix &lignes)
{
    m_listes.insert(combo, lignes);
    combo->remplir(lignes);
}

void FicheReference::remplirListe(ListeFiltree *liste, const ListeChoix &lignes)
{
    m_listesLiees.insert(liste, lignes);
    montrerLies(liste->objectName(), liste->codes());
}

void FicheReference::montrerLies(const QString &nom, const QStringList &codes)
{
    auto *liste = findChild<ListeFiltree *>(nom);
    ListeChoix choisies;
    ListeChoix autres;
    QStringList connus;
    for (const Choix &ligne : m_listesLiees.value(liste)) {
        (codes.contains(ligne.code) ? choisies : autres).append(ligne);
        connus << ligne.code;
    }
    for (const QString &code : codes) {
        if (!connus.contains(code))
            choisies.append({code, code});
    }
    liste->remplir(choisies + autres);
    liste->choisir(codes);
    liste->scrollToTop();
}

LiensFiche FicheReference::liens() const
{
    LiensFiche choisis;
    for (const LienFiche &lien : m_description.liens) {
        if (const auto *liste = findChild<ListeFiltree *>(lien.controle))
            choisis.insert(lien.table, liste->codes());
    }
    return choisis;
}

ListeChoix FicheReference::cles() const
{
    return LectureFiche::cles(session().donnees, m_description);
}

void FicheReference::remplirCles()
{
    const ListeChoix lignes = cles();
    if (m_cles)
        m_cles->remplir(lignes);
    if (m_clesLibres) {
        QStringList textes;
        for (const Choix &cle : lignes)
            textes << cle.texte;
        m_clesLibres->remplir(textes);
    }
}

void FicheReference::rafraichir()
{
    const bool intacte = !modifiee();
    remplirListes();
    remplirCles();
    if (intacte)
        retenirSaisie();
}

void FicheReference::vider()
{
    {
        const QScopedValueRollback vider(session().ViderEnCours, true);
        m_chargee.reset();
        if (m_cles)
            m_cles->vider();
        for (const ChampFiche &champ : m_description.champs)
            fixer(champ, {});
        for (const LienFiche &lien : m_description.liens)
            montrerLies(lien.controle, {});
        montrerDependants(nullptr);
    }
    retenirSaisie();
}

void FicheReference::charger(const QString &code)
{
    const std::optional<FicheLue> lue = LectureFiche::lire(session().donnees, m_description, code);
    if (!lue) {
        vider();
        return;
    }
    {
        const QScopedValueRollback vider(session().ViderEnCours, true);
        m_chargee = lue;
        if (m_cles)
            m_cles->choisir(code);
        for (const ChampFiche &champ : m_description.champs)
            fixer(champ, lue->valeurs.value(champ.colonne));
        for (const LienFiche &lien : m_description.liens)
            montrerLies(lien.controle, lue->liens.value(lien.table));
        montrerDependants(&*lue);
    }
    retenirSaisie();
    m_vientDeCharger = true;
    QTimer::singleShot(0, this, [this] { m_vientDeCharger = false; });
}

bool FicheReference::montrerCle(const QString &cle)
{
    const QString code = LectureFiche::codeDe(session().donnees, m_description, cle);
    if (!code.isEmpty())
        charger(code);
    return !code.isEmpty();
}

void FicheReference::choisirCle()
{
    if (session().ViderEnCours)
        return;
    executer([this] {
        const QString code = m_cles->code();
        if (!abandonner()) {
            m_cles->choisir(m_chargee ? QString::number(m_chargee->rang) : QString());
            return;
        }
        charger(code);
    });
}

// The key was typed, or picked where it is typed in its combo.
void FicheReference::suivreCle()
{
    if (session().ViderEnCours || m_fermetureDecidee)
        return;
    executer([this] {
        const ChampFiche &champ = *m_description.champ(m_description.critere);
        const QString code = LectureFiche::codeDe(session().donnees, m_description, texte(champ));
        const bool autre = !code.isEmpty() && (!m_chargee || QString::number(m_chargee->rang) != code);
        // A key that is picked from its own list is a choice; one that is typed loads nothing over a typing under way.
        QStringList sansCle = saisie();
        QStringList connueSansCle = m_saisieConnue;
        const qsizetype position = &champ - m_description.champs.constData();
        sansCle.removeAt(position);
        connueSansCle.removeAt(position);
        const bool intacte = sansCle == connueSansCle;
        if (autre && m_clesLibres && !intacte && !abandonner()) {
            fixer(champ, m_chargee ? m_chargee->cle : QString());
            return;
        }
        if (autre && (m_clesLibres || (intacte && !m_chargee)))
            charger(code);
        else
            montrerEtat();
    });
}

void FicheReference::montrerEtat()
{
    const QString cle = texte(*m_description.champ(m_description.critere)).trimmed();
    const bool interne = !m_description.cleInterne.isEmpty();
    const bool memeLigne = m_chargee && (interne || m_chargee->cle.compare(cle, Qt::CaseInsensitive) == 0);
    m_suppr->setEnabled(memeLigne);
    m_suppr->setToolTip(
        memeLigne ? QString()
                  : QStringLiteral("Choisissez d'abord dans la liste l'enregistrement à supprimer"));
    if (interne)
        m_valider->setText(m_chargee ? QStringLiteral("&Modifier") : QStringLiteral("&Valider"));
}

Enregistrement FicheReference::enregistrement() const
{
    return M_Enreg_Tables::ligne(m_description, valeurs(), m_chargee ? m_chargee->interne : QString(),
                                 liens());
}

void FicheReference::refuser(const RefusFiche &refus)
{
    session().dialogue.message(refus.message, refus.titre, Icone::Exclamation);
    if (QWidget *champ = controle(refus.controle))
        champ->setFocus(Qt::OtherFocusReason);
}

void FicheReference::valider()
{
    if (!verifierZones() || !terminerSaisie())
        return;
    std::optional<RefusFiche> refus = ReglesFiche::refusFiche(m_description, valeurs());
    if (!refus)
        refus = ReglesFiche::refusDoublon(session().donnees, m_description, valeurs(),
                                          m_chargee ? m_chargee->interne : QString());
    if (!refus)
        refus = refusSaisie();
    if (refus) {
        refuser(*refus);
        return;
    }
    const Suite suite = M_Enreg_Tables::enregistrer(session().donnees, session().dialogue, enregistrement());
    if (suite != Suite::Autre && suite != Suite::Fini)
        return;
    apresEnregistrement();
    Q_EMIT enregistree();
    if (suite == Suite::Fini) {
        m_fermetureDecidee = true;
        fermer();
        return;
    }
    vider();
    remplirListes();
    remplirCles();
    retenirSaisie();
    QWidget *premier = controle(m_description.champ(m_description.critere)->controle);
    premier->setFocus(Qt::OtherFocusReason);
}

void FicheReference::annuler()
{
    vider();
}

void FicheReference::supprimer()
{
    if (!m_chargee ||
        !SuppressionFiche::supprimer(session().donnees, session().dialogue, m_description, *m_chargee))
        return;
    vider();
    remplirListes();
    remplirCles();
    retenirSaisie();
    Q_EMIT enregistree();
}

void FicheReference::proposer(const QString &nom, const QString &texte)
{
    QWidget *widget = controle(nom);
    if (auto *combo = qobject_cast<ZoneCombo *>(widget)) {
        const ListeChoix lignes = m_listes.value(combo);
        const auto ligne = std::find_if(lignes.cbegin(), lignes.cend(), [&](const Choix &choix) {
            return choix.texte == texte || choix.code == texte;
        });
        if (ligne != lignes.cend())
            combo->choisir(ligne->code);
    } else {
        for (const ChampFiche &champ : m_description.champs) {
            if (champ.controle == nom)
                fixer(champ, texte);
        }
    }
    suivreProposition();
    retenirSaisie();
}

void FicheReference::keyPressEvent(QKeyEvent *evenement)
{
    // The Enter that ends a key has shown its row: it does not save it too.
    const bool entree = evenement->key() == Qt::Key_Return || evenement->key() == Qt::Key_Enter;
    if (entree && m_vientDeCharger)
        evenement->accept();
    else
        Ecran::keyPressEvent(evenement);
}

void FicheReference::closeEvent(QCloseEvent *evenement)
{
    Ecran::closeEvent(evenement);
    if (!evenement->isAccepted())
        return;
    if (!m_fermetureDecidee && !abandonner()) {
        evenement->ignore();
        return;
    }
    m_fermetureDecidee = true;
    Q_EMIT fermee();
}
