#include "frame/FiltreFichier.h"

#include <QRegularExpression>

QStringList filtresQt(const QString &filtre)
{
    QStringList filtres;
    const QStringList morceaux = filtre.split(u'|');
    for (qsizetype i = 0; i + 1 < morceaux.size(); i += 2) {
        QStringList motifs;
        const QStringList donnes = morceaux[i + 1].split(u';', Qt::SkipEmptyParts);
        for (const QString &donne : donnes) {
            const QString motif = donne.trimmed();
            if (!motif.isEmpty())
                // Elsewhere than on Windows "*.*" would miss the names without a dot.
                motifs << (motif == QLatin1String("*.*") ? QStringLiteral("*") : motif);
        }
        if (!motifs.isEmpty())
            filtres << morceaux[i].trimmed() + QStringLiteral(" (") + motifs.join(u' ') + u')';
    }
    return filtres;
}

QString extensionDuFiltre(const QString &filtreQt)
{
    static const QRegularExpression PREMIERE(QStringLiteral("\\(\\*\\.(\\w+)[^()]*\\)$"));
    return PREMIERE.match(filtreQt).captured(1);
}
