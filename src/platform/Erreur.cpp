#include "platform/Erreur.h"

#include <utility>

Erreur::Erreur(int numero, QString description)
    : m_numero(numero), m_description(std::move(description)), m_utf8(m_description.toUtf8())
{
}

QString Erreur::numeroEtDescription() const
{
    return QString::number(m_numero) + QStringLiteral(" - ") + m_description;
}
