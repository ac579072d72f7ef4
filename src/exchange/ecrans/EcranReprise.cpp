#include "exchange/ecrans/EcranReprise.h"

#include "exchange/ecrans/ControleurImport.h"
#include "frame/Session.h"
#include "platform/Erreur.h"
#include "platform/FichierLisible.h"

#include <QApplication>

void EcranReprise::fermerTous(const Session &session)
{
    const QWidgetList widgets = QApplication::allWidgets();
    for (QWidget *widget : widgets) {
        auto *ecran = qobject_cast<EcranReprise *>(widget);
        if (ecran && &ecran->session() == &session && ecran->isVisible())
            ecran->fermer();
    }
}

QString EcranReprise::emplacement() const
{
    const ImportSession &import = session().importSession;
    return QStringLiteral("Ligne %1 du fichier « %2 »")
        .arg(QString::number(import.LigneReprise), import.TitreImport);
}

void EcranReprise::RelancerImport()
{
    Session &s = session();
    Cadre &c = cadre();
    try {
        verifierLisible(s.importSession.FichierImport);
    } catch (const Erreur &erreur) {
        s.dialogue.message(erreur.description(), QStringLiteral("Attention"), Icone::Exclamation);
        return;
    }
    s.importSession.LigneIgnoree = false;
    fermer();
    s.dialogue.ceder();
    ControleurImport::RelancerImport(s, c);
}
