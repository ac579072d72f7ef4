#include "analysis/Lexique.h"

#include "database/Collation.h"

#include <algorithm>
#include <numeric>

namespace
{
bool estNombre(const QString &texte)
{
    return !texte.isEmpty() &&
           std::all_of(texte.begin(), texte.end(), [](QChar c) { return c >= u'0' && c <= u'9'; });
}

// Codes are texts, but a user counts: 301 comes before 1302.
int comparer(const QString &a, const QString &b)
{
    const bool nombreA = estNombre(a);
    if (nombreA != estNombre(b))
        return nombreA ? -1 : 1;
    if (!nombreA)
        return Collation::comparer(a, b);
    const auto chiffres = [](const QString &texte) {
        QStringView vue(texte);
        while (vue.size() > 1 && vue.front() == u'0')
            vue = vue.mid(1);
        return vue;
    };
    const QStringView ca = chiffres(a);
    const QStringView cb = chiffres(b);
    return ca.size() != cb.size() ? (ca.size() < cb.size() ? -1 : 1) : ca.compare(cb);
}
} // namespace

int Lexique::numero(QByteArrayView code)
{
    if (code.isEmpty())
        return AUCUN;
    const auto trouve = m_numeros.constFind(QByteArray::fromRawData(code.data(), code.size()));
    if (trouve != m_numeros.constEnd())
        return *trouve;
    const int nouveau = taille();
    const QString texte = QString::fromUtf8(code);
    m_numeros.insert(code.toByteArray(), nouveau);
    m_codes << texte;
    const QString nom = m_noms.value(texte.toCaseFolded());
    m_libelles << (nom.isEmpty() ? texte : nom);
    return nouveau;
}

QList<quint32> Lexique::rangs(Par par) const
{
    return rangs(par == Par::Code ? m_codes : m_libelles);
}

QList<quint32> Lexique::rangs(const QList<QString> &textes)
{
    QList<qsizetype> ordre(textes.size());
    std::iota(ordre.begin(), ordre.end(), 0);
    std::sort(ordre.begin(), ordre.end(),
              [&](qsizetype a, qsizetype b) { return comparer(textes[a], textes[b]) < 0; });
    QList<quint32> rangs(textes.size(), 0);
    quint32 rang = 0;
    const QString *precedent = nullptr;
    for (const qsizetype place : std::as_const(ordre)) {
        const QString &texte = textes[place];
        if (texte.isEmpty())
            continue;
        if (!precedent || comparer(*precedent, texte) != 0)
            ++rang;
        precedent = &texte;
        rangs[place] = rang;
    }
    return rangs;
}
