#include "widgets/Recherche.h"

QString Recherche::plier(const QString &texte)
{
    const QString decompose = texte.normalized(QString::NormalizationForm_D);
    QString plie;
    plie.reserve(decompose.size());
    for (const QChar c : decompose) {
        if (c.category() != QChar::Mark_NonSpacing)
            plie += c;
    }
    return plie.toCaseFolded();
}
