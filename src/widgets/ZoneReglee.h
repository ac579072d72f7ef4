// What the free text fields have in common: a rule, given by the screen, judges the text when the field is left.
#pragma once

#include "widgets/ZoneVerifiee.h"

#include <functional>
#include <optional>

class ZoneReglee : public ZoneVerifiee
{
public:
    struct Refus {
        QString message;
        QString titre;
    };
    // Nothing for a text that can be taken.
    using Regle = std::function<std::optional<Refus>(const QString &texte)>;

    using ZoneVerifiee::ZoneVerifiee;

    void definirRegle(Regle regle) { m_regle = std::move(regle); }

protected:
    virtual QString texteAJuger() const = 0;

    bool accepter() override
    {
        m_refus = m_regle ? m_regle(texteAJuger()) : std::nullopt;
        return !m_refus;
    }
    QString messageRefus() const override { return m_refus ? m_refus->message : QString(); }
    QString titreRefus() const override { return m_refus ? m_refus->titre : QString(); }

private:
    Regle m_regle;
    std::optional<Refus> m_refus;
};
