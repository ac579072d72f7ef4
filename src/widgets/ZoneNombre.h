// A number, with a comma or a point.
#pragma once

#include "widgets/ZoneTexte.h"

#include <optional>

class QTimer;

// A text that is no number is refused with "La valeur demandée est de type numérique." under "Erreur de type": when the
// field is left and, while it is being typed, as soon as the typing pauses on something that can no longer become a
// number. An empty field is no error. With `verifiee` false the field takes any text, and its screen's command judges.
class ZoneNombre : public ZoneTexte
{
    Q_OBJECT
    Q_PROPERTY(bool verifiee READ verifiee WRITE setVerifiee)
public:
    explicit ZoneNombre(QWidget *parent = nullptr);

    // The number typed; nothing where the text is empty or no number.
    std::optional<double> nombre() const;
    void fixer(std::optional<double> nombre);

    bool verifiee() const { return m_verifiee; }
    void setVerifiee(bool verifiee) { m_verifiee = verifiee; }

protected:
    bool accepter() override;
    QString messageRefus() const override;
    QString titreRefus() const override;

private:
    void suivreFrappe();
    void jugerFrappe();

    QTimer *m_pause;
    bool m_verifiee = true;
};
