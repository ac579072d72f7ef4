#include "database/Collation.h"

#include "platform/Erreur.h"

#include <QCollator>
#include <QLocale>
#include <sqlite3.h>

namespace
{
const QCollator &francais()
{
    static const QCollator collateur = [] {
        QCollator c(QLocale(QLocale::French, QLocale::France));
        c.setCaseSensitivity(Qt::CaseInsensitive);
        return c;
    }();
    return collateur;
}

int comparerUtf8(void *, int tailleA, const void *a, int tailleB, const void *b)
{
    return Collation::comparer(QString::fromUtf8(static_cast<const char *>(a), tailleA),
                               QString::fromUtf8(static_cast<const char *>(b), tailleB));
}
} // namespace

void Collation::installer(sqlite3 *base)
{
    const int code = sqlite3_create_collation(base, "FRANCAIS", SQLITE_UTF8, nullptr, comparerUtf8);
    if (code != SQLITE_OK)
        throw Erreur(code, QString::fromUtf8(sqlite3_errmsg(base)));
}

int Collation::comparer(QStringView a, QStringView b)
{
    return francais().compare(a, b);
}

QString Collation::pliee(const QString &nom)
{
    return nom.normalized(QString::NormalizationForm_C).toCaseFolded();
}
