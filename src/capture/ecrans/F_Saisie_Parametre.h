// The sheet of a parameter, with the units in which it may be imported and its drinking-water norm by fraction.
#pragma once

#include "capture/ecrans/FicheReference.h"

#include <memory>

namespace Ui
{
class F_Saisie_Parametre;
}

class F_Saisie_Parametre : public FicheReference
{
    Q_OBJECT
public:
    F_Saisie_Parametre(Session &session, Cadre &cadre);
    ~F_Saisie_Parametre() override;

    void Vider_Parametre() { vider(); }
    // Loads the parameter that bears this name; nothing happens where none does.
    void montrerParametre(const QString &nom);

protected:
    void remplirListes() override;
    void montrerDependants(const FicheLue *fiche) override;
    void suivreProposition() override { accorderUnites(); }
    QStringList saisieDependante() const override;
    std::optional<RefusFiche> refusSaisie() const override;
    Enregistrement enregistrement() const override;
    void keyPressEvent(QKeyEvent *evenement) override;

private:
    void reglerCode();
    // Opens the sheet of a unit; during an import, filled with the one that the file gives and the base does not know.
    void ouvrirUnite();
    void ajouterUnite();
    void retirerUnite();
    // The unit of reference has changed: what hangs on it.
    void accorderUnites();
    // Units of the list, without the one of reference.
    QStringList autresUnites() const;

    // Under which fraction the norm that is shown is kept; empty for the parameter that has but one.
    QString cleNorme() const;
    void changerFraction();
    void montrerNorme();

    std::unique_ptr<Ui::F_Saisie_Parametre> m_ui;
    QStringList m_unites;            // CodeUnite of every unit in which it may be imported
    QMap<QString, QString> m_normes; // fraction to the norm's text, as typed
    QStringList m_fractionsLues;     // those that have a norm in the base
    QString m_fraction;              // whose norm is shown
    QString m_uniteDuFichier;        // symbol that an import has met
};
