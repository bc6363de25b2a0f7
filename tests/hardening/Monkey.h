#pragma once

#include "hardening/Dice.h"
#include "hardening/Playground.h"

#include <QMap>
#include <QPointer>
#include <QWidget>

/// A user without a plan. It knows no window: it finds menus, buttons and fields as it meets them,
/// and keeps to what is in front: a popup, else a modal window, else any window.
class Monkey
{
public:
    Monkey(Dice &dice, Playground &playground) : m_dice(dice), m_playground(playground) {}

    /// Does one thing, and tells what.
    QString act();
    /// Takes one step towards the program's end. False when there is nothing left to close.
    bool closeSomething();
    /// How often it acted on each kind of window, popups included.
    const QMap<QString, int> &windowsMet() const { return m_windowsMet; }

private:
    QWidget *front();
    QWidget *target(QWidget &window);

    QString choosePopup(QWidget &popup);
    QString triggerAction(QWidget &window);
    QString saveAndRun(QWidget &window);
    QString click(QWidget &window);
    QString press(QWidget &window);
    QString type(QWidget &window);
    QString turnWheel(QWidget &window);
    QString drop(QWidget &window);
    QString reshape(QWidget &window);
    QString close(QWidget &window);

    Dice &m_dice;
    Playground &m_playground;
    QMap<QString, int> m_windowsMet;
};
