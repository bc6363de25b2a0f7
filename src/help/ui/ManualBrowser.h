#pragma once

#include <QTextBrowser>

#include <functional>

namespace ardiphon {

/// Shows the pages of the Csound manual, which are written for a web browser, as well as a text
/// view can. Anything else than a page or text of the manual is opened outside.
class ManualBrowser : public QTextBrowser
{
    Q_OBJECT

public:
    /// \a openOutside: called for a link that leaves the manual.
    ManualBrowser(std::function<void(const QUrl &)> openOutside, QWidget *parent);

    QVariant loadResource(int type, const QUrl &name) override;

    /// Makes the text \a steps steps larger, or smaller when negative, within limits.
    void changeTextSize(int steps);

protected:
    void doSetSource(const QUrl &name, QTextDocument::ResourceType type) override;

private:
    QString contentOf(const QUrl &page) const;
    QVariant pictureOf(const QUrl &name) const;

    std::function<void(const QUrl &)> m_openOutside;
    int m_textSteps = 0;
};

} // namespace ardiphon
