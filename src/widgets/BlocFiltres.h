// The filters of a selection of measures: manager, network, comment, protocol.
#pragma once

#include "platform/Choix.h"

#include <QWidget>

class ListeFiltree;
class QLabel;
class QToolButton;
class ZoneCombo;

// Nothing chosen in a list filters nothing on it. Each screen names the controls inside, as its properties in the .ui
// file; a control without a name is not shown.
class BlocFiltres : public QWidget
{
    Q_OBJECT
    Q_PROPERTY(QString nomGestionnaires READ nomGestionnaires WRITE setNomGestionnaires)
    Q_PROPERTY(QString nomReseaux READ nomReseaux WRITE setNomReseaux)
    Q_PROPERTY(QString nomCommentaires READ nomCommentaires WRITE setNomCommentaires)
    Q_PROPERTY(QString nomProtocole READ nomProtocole WRITE setNomProtocole)
public:
    explicit BlocFiltres(QWidget *parent = nullptr);

    // Choices that the new lists still hold are kept.
    void remplir(const ListesFiltres &listes);

    // Codes of the chosen rows.
    QStringList gestionnaires() const;
    QStringList reseaux() const;
    QStringList commentaires() const;
    // Text of the chosen protocol; empty where none is chosen.
    QString protocole() const;
    void vider();

    QString nomGestionnaires() const;
    QString nomReseaux() const;
    QString nomCommentaires() const;
    QString nomProtocole() const;
    void setNomGestionnaires(const QString &nom);
    void setNomReseaux(const QString &nom);
    void setNomCommentaires(const QString &nom);
    void setNomProtocole(const QString &nom);

protected:
    void changeEvent(QEvent *evenement) override;

private:
    // One list under its caption, with what is chosen in it told beside.
    struct Critere {
        QWidget *bloc = nullptr;
        ListeFiltree *liste = nullptr;
        QLabel *etat = nullptr;
        QToolButton *effacer = nullptr;
    };
    Critere creer(const QString &libelle);
    static void montrerEtat(const Critere &critere);
    static void nommer(const Critere &critere, const QString &nom);

    Critere m_gestionnaires;
    Critere m_reseaux;
    Critere m_commentaires;
    QWidget *m_blocProtocole;
    ZoneCombo *m_protocole;
};
