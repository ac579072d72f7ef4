#include "exchange/ChampsCommuns.h"

#include "capture/M_Variables_OVRA.h"

QString ChampsCommuns::codeElement(const QString &nom, const QString &debut, int maximum,
                                   const TableDeNoms &table, TypeElement type)
{
    if (nom.size() > maximum)
        throw ArretImport::tropLong(debut, nom, maximum);
    if (nom.isEmpty())
        throw ArretImport::elementVide(libelleElement(type), type);
    const std::optional<QString> code = table.chercher(nom);
    if (!code)
        throw ArretImport::elementInconnu(type, nom);
    return *code;
}

QDate ChampsCommuns::jour(const QVariant &cellule, const QString &suite)
{
    const QString texte = CelluleImport::texte(cellule);
    if (texte.isEmpty())
        throw ArretImport::elementVide(QStringLiteral(" date "));
    if (const std::optional<QDate> lue = CelluleImport::date(cellule))
        return *lue;
    ArretImport arret;
    arret.texte = QStringLiteral("La valeur '") + citer(texte) +
                  QStringLiteral("' doit être au format Date/Heure 'jj/mm/yy'.") + suite;
    throw arret;
}

QString ChampsCommuns::heureControlee(const QVariant &cellule)
{
    QString heure = CelluleImport::heure(cellule);
    if (!heure.isEmpty() && !M_Variables_OVRA::HeureValide(heure))
        throw ArretImport::faute(QStringLiteral("La valeur de l'heure '") + citer(heure) +
                                 QStringLiteral("' doit être au format Date/Heure 'hh:mm:ss'."));
    return heure;
}
