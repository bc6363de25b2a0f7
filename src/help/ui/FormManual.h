#pragma once

#include "language/ui/KeywordHelp.h"

#include <QWidget>

#include <functional>

class QHBoxLayout;
class QLabel;
class QLineEdit;
class QToolButton;

namespace ardiphon {

class ManualBrowser;

/// The help window: the Csound manual with back, forward, start page, find on page and text size.
/// It is not modal and remembers nothing; Esc closes it.
class FormManual : public QWidget
{
    Q_OBJECT

public:
    /// \a openOutside: opens an address or file with the system.
    FormManual(std::function<void(const QUrl &)> openOutside, QWidget *owner);

    /// Shows \a page and comes to the front. \a startPage is where "Start page" leads.
    void showPage(const QUrl &page, const QString &startPage);

private:
    QToolButton *addButton(const QString &name, const QString &caption, const QString &hint,
                           const QList<QKeySequence> &keys, std::function<void()> action);
    void buildHistoryButtons();
    void buildFindControls();
    void buildOtherButtons();
    void find(bool backward);
    void setTitle();

    std::function<void(const QUrl &)> m_openOutside;
    QUrl m_startPage;
    QHBoxLayout *m_bar;
    ManualBrowser *const m_browser;
    QLineEdit *TextFind = nullptr;
    QLabel *LabelFind = nullptr;
};

/// Shows help in a FormManual that \a owner owns, made when it is first needed and again after it
/// was closed; other files are opened by the system.
HelpViewer manualViewer(QWidget *owner);

} // namespace ardiphon
