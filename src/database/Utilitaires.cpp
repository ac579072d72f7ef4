#include "database/Utilitaires.h"

#include "platform/Chemins.h"
#include "platform/Dialogue.h"
#include "platform/Horloge.h"

#include <QDir>

namespace
{
constexpr int LARGEUR_CADRE = 65;

QString moment(const QString &format)
{
    return Horloge::maintenant().toString(format);
}
} // namespace

namespace Utilitaires
{
QString Journal::OuvrirJournal(const QString &prefixe)
{
    const QString dossier = QString::fromUtf16(Chemins::MAJ_INTERVENANT);
    QString chemin =
        dossier + prefixe + u'_' + moment(QStringLiteral("yyyyMMddHHmm")) + QStringLiteral(".log");
    QDir().mkpath(Chemins::versHote(dossier));
    m_fichier.close();
    m_fichier.setFileName(Chemins::versHote(chemin));
    if (m_fichier.open(QIODevice::WriteOnly | QIODevice::Text))
        ecrireCadre(QStringLiteral("DEBUT ") + prefixe);
    else
        montrerErreur();
    return chemin;
}

void Journal::EcrireJournal(const QString &texte)
{
    if (m_fichier.isOpen())
        m_fichier.write((texte + u'\n').toUtf8());
}

void Journal::FermerJournal(const QString &prefixe)
{
    if (!m_fichier.isOpen())
        return;
    ecrireCadre(QStringLiteral("FIN ") + prefixe);
    if (!m_fichier.flush() || m_fichier.error() != QFileDevice::NoError)
        montrerErreur();
    m_fichier.close();
}

void Journal::ecrireCadre(const QString &texte)
{
    const QString trait(LARGEUR_CADRE, u'=');
    EcrireJournal(trait);
    EcrireJournal(texte + QStringLiteral(" : ") + moment(QStringLiteral("dd-MM-yyyy HH:mm:ss")));
    EcrireJournal(trait);
}

void Journal::montrerErreur()
{
    m_dialogue.message(QStringLiteral("Une erreur s'est produite en cours de traitement : \n%1 - %2")
                           .arg(static_cast<int>(m_fichier.error()))
                           .arg(m_fichier.errorString()),
                       QStringLiteral("Erreur"));
}
} // namespace Utilitaires
