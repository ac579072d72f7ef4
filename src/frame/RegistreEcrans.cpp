#include "frame/RegistreEcrans.h"

#include "frame/Cadre.h"
#include "frame/Session.h"

#include <QWidget>

namespace
{
using Preparation = std::function<void(Session &)>;
using Commande = std::function<void(Session &, Cadre &)>;

// An entry that opens the screen `Ecran`, after `preparer` has put the session in the state it expects.
template <typename Ecran> EntreeRegistre ecran(const char16_t *menu, const Preparation &preparer = {})
{
    return {QString::fromUtf16(menu), QString::fromLatin1(Ecran::staticMetaObject.className()),
            [preparer](Session &session, Cadre &cadre) -> QWidget * {
                if (preparer)
                    preparer(session);
                return new Ecran(session, cadre);
            }};
}

EntreeRegistre commande(const char16_t *menu, const Commande &executer)
{
    return {QString::fromUtf16(menu), {}, [executer](Session &session, Cadre &cadre) -> QWidget * {
                executer(session, cadre);
                return nullptr;
            }};
}

void importPhytoReuni(Session &session, Cadre & /*cadre*/)
{
    session.dialogue.message(QStringLiteral("Import PC/PS réuni"), QString(), Icone::Aucune);
}
} // namespace

const QList<EntreeRegistre> &registreEcrans()
{
    static const QList<EntreeRegistre> registre = {
        commande(u"m_import_donnees_phyto", importPhytoReuni),
    };
    return registre;
}
