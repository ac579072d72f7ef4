#include "database/Requete.h"

#include "platform/Erreur.h"

#include <QDateTime>
#include <QSqlDatabase>
#include <QSqlError>
#include <QSqlRecord>

namespace
{
[[noreturn]] void echouer(const QSqlError &erreur)
{
    throw Erreur(erreur.nativeErrorCode().toInt(), erreur.databaseText().trimmed());
}

QVariant pourLaBase(const QVariant &valeur)
{
    switch (valeur.typeId()) {
    case QMetaType::QString: {
        // The driver would make NULL of a null QString.
        const QString texte = valeur.toString();
        return texte.isNull() ? QVariant(QLatin1String("")) : QVariant(texte);
    }
    case QMetaType::QDate: {
        const QDate date = valeur.toDate();
        return date.isValid() ? QVariant(date.toString(Qt::ISODate)) : QVariant();
    }
    case QMetaType::QTime: {
        const QTime heure = valeur.toTime();
        return heure.isValid() ? QVariant(heure.toString(QStringLiteral("hh:mm:ss"))) : QVariant();
    }
    case QMetaType::QDateTime: {
        const QDateTime moment = valeur.toDateTime();
        if (!moment.isValid())
            return {};
        return moment.toString(moment.time() == QTime(0, 0) ? QStringLiteral("yyyy-MM-dd")
                                                            : QStringLiteral("yyyy-MM-dd hh:mm:ss"));
    }
    case QMetaType::Bool:
        return valeur.toBool() ? -1 : 0;
    default:
        return valeur;
    }
}
} // namespace

Requete::Requete(const QSqlDatabase &base, const QString &sql) : m_requete(base)
{
    m_requete.setForwardOnly(true);
    if (!m_requete.prepare(sql))
        echouer(m_requete.lastError());
}

Requete::Requete(const QSqlDatabase &base, const QString &sql, const QVariantList &parametres)
    : Requete(base, sql)
{
    executer(parametres);
}

int Requete::lancer(const QSqlDatabase &base, const QString &sql, const QVariantList &parametres)
{
    const Requete requete(base, sql, parametres);
    return requete.lignesTouchees();
}

void Requete::executer(const QVariantList &parametres)
{
    for (qsizetype i = 0; i < parametres.size(); ++i)
        m_requete.bindValue(static_cast<int>(i), pourLaBase(parametres[i]));
    if (!m_requete.exec())
        echouer(m_requete.lastError());
}

bool Requete::suivant()
{
    if (m_requete.next())
        return true;
    if (m_requete.lastError().isValid())
        echouer(m_requete.lastError());
    return false;
}

int Requete::position(const QString &colonne) const
{
    auto trouvee = m_positions.constFind(colonne);
    if (trouvee == m_positions.constEnd())
        trouvee = m_positions.insert(colonne, m_requete.record().indexOf(colonne));
    if (*trouvee < 0)
        throw Erreur(0, QStringLiteral("Colonne inconnue : ") + colonne);
    return *trouvee;
}

QVariant Requete::valeur(const QString &colonne) const
{
    return m_requete.value(position(colonne));
}

QVariant Requete::valeur(int colonne) const
{
    return m_requete.value(colonne);
}

QDate Requete::date(const QString &colonne) const
{
    return QDate::fromString(texte(colonne).left(10), Qt::ISODate);
}

QTime Requete::heure(const QString &colonne) const
{
    return QTime::fromString(texte(colonne), QStringLiteral("hh:mm:ss"));
}

QStringList Requete::colonnes() const
{
    QStringList noms;
    const QSqlRecord modele = m_requete.record();
    for (int i = 0; i < modele.count(); ++i)
        noms << modele.fieldName(i);
    return noms;
}

int Requete::lignesTouchees() const
{
    return m_requete.numRowsAffected();
}

QVariant Requete::dernierIdentifiant() const
{
    return m_requete.lastInsertId();
}

void Requete::finir()
{
    m_requete.finish();
}
