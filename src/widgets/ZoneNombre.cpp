#include "widgets/ZoneNombre.h"

#include "platform/Saisie.h"

#include <chrono>
#include <QTimer>

ZoneNombre::ZoneNombre(QWidget *parent) : ZoneTexte(parent), m_pause(new QTimer(this))
{
    using namespace std::chrono_literals;
    m_pause->setSingleShot(true);
    m_pause->setInterval(600ms);
    connect(this, &QLineEdit::textEdited, this, &ZoneNombre::suivreFrappe);
    connect(m_pause, &QTimer::timeout, this, &ZoneNombre::jugerFrappe);
}

std::optional<double> ZoneNombre::nombre() const
{
    return Saisie::lireNombre(text());
}

void ZoneNombre::fixer(std::optional<double> nombre)
{
    setText(nombre ? Saisie::ecrireNombre(*nombre) : QString());
}

bool ZoneNombre::accepter()
{
    m_pause->stop();
    return !m_verifiee || text().trimmed().isEmpty() || nombre();
}

QString ZoneNombre::messageRefus() const
{
    return QStringLiteral("La valeur demandée est de type numérique.");
}

QString ZoneNombre::titreRefus() const
{
    return QStringLiteral("Erreur de type");
}

void ZoneNombre::suivreFrappe()
{
    if (m_verifiee && !Saisie::debutDeNombre(text()))
        m_pause->start();
    else
        m_pause->stop();
}

void ZoneNombre::jugerFrappe()
{
    if (hasFocus() && !accepter())
        refuser();
}
