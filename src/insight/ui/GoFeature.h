#pragma once

#include "workbench/ui/WindowFeature.h"

#include <QObject>
#include <QStringList>

namespace ardiphon {

/// Going to any name of the piece, and from a note to its instrument and back.
class GoFeature : public QObject, public WindowFeature
{
    Q_OBJECT

public:
    void install(FeatureHost &host) override;

private:
    void goToName();
    void goToInstrumentOrNote();
    void goToInstrument(const QByteArray &name, int noteLine);
    bool openInclude(const PieceText &text, int line);
    void goToNote(const QStringList &instruments);
    void tell(const QString &text);

    FeatureHost *m_host = nullptr;
    int m_lastNote = 0; ///< the line of the score where it was last
};

} // namespace ardiphon
