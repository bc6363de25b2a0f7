# What is read once for all sources of a library (precompiled): what most of them include. A header
# costs each source the templates that it asks for, needed or not; those of the lists and trees cost
# as much as all other widgets together.

set(COMMON_CORE_HEADERS
    <QByteArray> <QDir> <QFile> <QFileInfo> <QHash> <QList> <QRegularExpression> <QString>
    <QStringList> <algorithm> <functional> <memory> <optional> <vector>)

set(COMMON_WINDOW_HEADERS
    <QAction> <QApplication> <QBoxLayout> <QCheckBox> <QDialog> <QFontDatabase> <QGridLayout>
    <QGroupBox> <QKeyEvent> <QLabel> <QLineEdit> <QMainWindow> <QMenu> <QMenuBar> <QMouseEvent>
    <QPainter> <QPointer> <QPushButton> <QRadioButton> <QScreen> <QScrollBar> <QTimer> <QToolBar>
    <QToolButton> <QWheelEvent>)

set(COMMON_TEST_HEADERS
    <QRandomGenerator> <QSignalSpy> <QTemporaryDir> <QTest>)
