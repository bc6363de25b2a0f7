# What is read once for all sources of a library (precompiled): what most of them include. All of the
# toolkit would take longer to load than most sources take to compile.

set(COMMON_CORE_HEADERS
    <QByteArray> <QDir> <QFile> <QFileInfo> <QHash> <QList> <QRegularExpression> <QString>
    <QStringList> <algorithm> <functional> <memory> <optional> <vector>)

set(COMMON_WINDOW_HEADERS
    <QAction> <QApplication> <QBoxLayout> <QCheckBox> <QComboBox> <QDialog> <QFontDatabase>
    <QGridLayout> <QGroupBox> <QKeyEvent> <QLabel> <QLineEdit> <QListWidget> <QMainWindow>
    <QMenu> <QMenuBar> <QMouseEvent> <QPainter> <QPlainTextEdit> <QPointer> <QPushButton>
    <QRadioButton> <QScreen> <QScrollBar> <QTimer> <QToolBar> <QToolButton> <QTreeWidget>
    <QWheelEvent>)

set(COMMON_TEST_HEADERS
    <QRandomGenerator> <QSignalSpy> <QTemporaryDir> <QTest>)
