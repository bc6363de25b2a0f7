#pragma once

#include "EditorWindows.h"
#include "navigation/ui/SearchWindow.h"
#include "platform/Dialogs.h"
#include "support/Controls.h"

#include <QAbstractButton>
#include <QLineEdit>

inline const ardiphon::Message NoMatches{QStringLiteral("No matches found!"),
                                         QStringLiteral("ArdiphonPro"),
                                         ardiphon::MessageIcon::Information};

inline const char *windowName(ardiphon::SearchKind kind)
{
    static const char *const names[] = {"formTrova", "FormSostituisci", "FormTrovaRiga"};
    return names[int(kind)];
}

/// One search window, as its user has it.
class Opened
{
public:
    Opened(const QWidget *owner, ardiphon::SearchKind kind)
    {
        const QList<ardiphon::SearchWindow *> found =
            owner->findChildren<ardiphon::SearchWindow *>(QLatin1String(windowName(kind)));
        for (ardiphon::SearchWindow *each : found)
            if (each->isVisible())
                window = each;
        const auto inFront = [this] { return QApplication::activeWindow() == window; };
        if (window && !QTest::qWaitFor(inFront))
            qFatal("the search window does not come to the front");
    }

    template <typename Control>
    Control *control(const char *name) const
    {
        return controlIn<Control>(*window, QLatin1String(name));
    }
    QLineEdit *text(const char *name = "Text1") const { return control<QLineEdit>(name); }
    void click(const char *name) const
    {
        QTest::mouseClick(control<QPushButton>(name), Qt::LeftButton);
    }
    /// Types over what is in the field.
    void type(const QString &words, const char *field = "Text1") const
    {
        text(field)->setFocus();
        text(field)->selectAll();
        QTest::keyClick(text(field), Qt::Key_Delete);
        QTest::keyClicks(text(field), words);
    }
    void choose(const char *option) const
    {
        QTest::mouseClick(box(option), Qt::LeftButton, {}, {8, 10});
    }
    QAbstractButton *box(const char *name) const { return control<QAbstractButton>(name); }

    QPointer<ardiphon::SearchWindow> window;
};

inline int visibleWindows()
{
    int count = 0;
    for (const QWidget *each : QApplication::topLevelWidgets())
        count += qobject_cast<const ardiphon::SearchWindow *>(each) && each->isVisible();
    return count;
}

inline QString focusName()
{
    const QWidget *focus = QApplication::focusWidget();
    return focus ? focus->objectName() : QString();
}
