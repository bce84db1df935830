#include <QProcess>
#include <QSet>
#include <QtTest>

namespace {

constexpr bool kIsSanitized = sizeof(SANITIZERS) > 1;

/// All that the tool may call of its host.
const QStringList kOperations{
    "VeskFilterContainer::VeskFilterContainer(QWidget*, VeskTitleWidget::TitleButtonFlag, bool, "
    "QWidget*, bool)",
    "VeskDialog::VeskDialog(QWidget*, VeskTitleWidget::TitleButtonFlag, bool, QWidget*, bool)",
    "VeskDialog::show(bool)",
    "VeskActionManager::getInstance(QString const&)",
    "VeskActionManager::getActionByName(QString) const",
    "VeskActionManager::setEnabled(int, bool)",
    "VeskContextManager::getInstance()",
    "VeskContextManager::getCurrentContext() const",
    "VeskContextManager::addContext(VeskContext*)",
    "VeskContextManager::indexOfContext(VeskContext*) const",
    "VeskContextManager::setCurrentContext(int)",
    "VeskContextManager::removeContext(VeskContext*)",
    "VeskContext::VeskContext(QObject*)",
    "VeskContext::getCurrentTool() const",
    "VeskContext::setCurrentTool(IVeskTool*)",
    "VeskContext::getCanvas() const",
    "VeskContext::setCanvas(VeskCanvas*)",
    "VeskContext::getLayerManager() const",
    "VeskContext::setSelection(VeskSelection*)",
    "VeskContext::setFileName(QString const&)",
    "VeskContext::isSaveAble() const",
    "VeskContext::setSaveAble(bool)",
    "VeskCanvas::stopCanvasTimer()",
    "VeskCanvas::startCanvasTimer(int)",
    "VeskCanvas::reSizeCanvas(int, int, bool)",
    "VeskCanvas::setSelection(VeskSelection*)",
    "VeskCanvas::moveToCenter(bool)",
    "VeskCanvas::updateHistogram()",
    "VeskRawType::isRaw(QString const&)",
    "VeskRaw::getInstance()",
    "VeskRaw::activate(QString const&, QWidget*, bool)",
    "VeskRaw::grabConvertedPicture()",
    "VeskLog::Instance()",
    "VeskLog::Log(char const*, ...)",
    "VeskPictureReader::VeskPictureReader(QObject*)",
    "VeskPictureReader::ReadImageToHost(QImage&)",
    "VeskPictureHost::getWidth() const",
    "VeskPictureHost::getHeight() const",
    "VeskLayer::VeskLayer(QString const&)",
    "VeskLayer::setVeskPictureHost(VeskPictureHost*)",
    "VeskLayerBase::setAlpha(float)",
    "VeskLayerManager::addLayer(VeskLayerBase*, bool)",
    "VeskSelection::VeskSelection(QObject*, int, int)",
    "VeskUIController::getInstance(QObject*)",
    "VeskUIController::notifyUI(QString, QList<QVariant>)",
    "VeskGlobalSettings::getInstance(QObject*)",
    "VeskGlobalSettings::isHistogramVisible() const",
    "VeskProgressIndicator::VeskProgressIndicator(QSize const&, QWidget*)",
    "VeskProgressIndicator::startAnimation()",
    "VeskEnDecodeTool::VeskGetMM(QString&)",
    "VeskEnDecodeTool::DES_Decrypt(QByteArray const&, QString const&, QString&)",
};

/// The virtual operation that is called on an object of a known class.
const QString kExec = QStringLiteral("VeskProgressIndicator::exec()");

/// Where the tool's classes are the host's, by inheritance or as objects on the stack.
const QStringList kInherited{
    "IVeskInsideTool::IVeskInsideTool(QObject*)",
    "IVeskInsideTool::~IVeskInsideTool()",
    "IVeskInsideTool::active(VeskContext*)",
    "IVeskInsideTool::qt_metacall(QMetaObject::Call, int, void**)",
    "IVeskInsideTool::qt_metacast(char const*)",
    "IVeskInsideTool::staticMetaObject",
    "typeinfo for IVeskInsideTool",
    "IVeskTool::event(QEvent*)",
    "IVeskTool::getWidget()",
    "IVeskTool::toolUndo()",
    "IVeskTool::toolRedo()",
    "IVeskTool::afterUndo()",
    "IVeskTool::isActive()",
    "IVeskTool::eventRegistered(QString)",
    "IVeskTool::processEvent(QString)",
    "VeskDialog::~VeskDialog()",
    "VeskProgressIndicator::~VeskProgressIndicator()",
    "VeskPictureReader::~VeskPictureReader()",
};

QString library(const QString &name)
{
    return qEnvironmentVariable("VESK_LIB_DIR") + QStringLiteral("/lib%1.so").arg(name);
}

/// Symbols of the library's dynamic table, demangled.
QSet<QString> symbols(const QString &name, const char *which)
{
    QProcess nm;
    nm.start(QStringLiteral(NM_PROGRAM),
             {QStringLiteral("-D"), QStringLiteral("-C"), QStringLiteral("--format=posix"),
              QLatin1String(which), library(name)});
    if (!nm.waitForFinished() || nm.exitCode() != 0)
        qFatal("nm: %s", nm.readAllStandardError().constData());
    QSet<QString> found;
    for (const QString &line : QString::fromLocal8Bit(nm.readAllStandardOutput()).split('\n')) {
        // "name type value size", and the name may have blanks of its own.
        static const QRegularExpression behindName(QStringLiteral(" [A-Za-z]( [0-9a-f ]*)?$"));
        const qsizetype end = line.indexOf(behindName);
        if (end > 0)
            found += line.left(end);
    }
    return found;
}

QSet<QString> definedByHost()
{
    QSet<QString> defined;
    for (const char *name : {"Tolvarin", "VeskCore", "VeskUI", "VeskRaw"})
        defined += symbols(QLatin1String(name), "--defined-only");
    return defined;
}

} // namespace

/// What the tool's library and those of its host know of each other.
class TestHostContract : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase()
    {
#if !defined(Q_OS_LINUX)
        QSKIP("the names of symbols and libraries are those of Linux");
#endif
        defined = definedByHost();
        needed = symbols(QStringLiteral("VeskHDR"), "--undefined-only");
        QVERIFY(defined.size() > 100);
        QVERIFY(needed.size() > 100);
    }

    void tool_needsOfItsHost_theListedOperationsOnly()
    {
        QStringList others;
        for (const QString &symbol : needed &defined) {
            const bool isListed = kOperations.contains(symbol) || kInherited.contains(symbol);
            // Sanitizers look types up wherever an object is used.
            const bool isOfSanitizer = kIsSanitized && symbol.startsWith("typeinfo for ");
            if (!isListed && !isOfSanitizer && symbol != kExec)
                others += symbol;
        }
        QVERIFY2(others.isEmpty(), qPrintable(others.join('\n')));
    }

    /// An inline one would be missing: the tool would carry the host's memory layout.
    void listedOperation_isExportedAndCalled_data()
    {
        QTest::addColumn<QString>("operation");
        for (const QString &operation : kOperations)
            QTest::newRow(qPrintable(operation.section('(', 0, 0))) << operation;
    }
    void listedOperation_isExportedAndCalled()
    {
        QFETCH(const QString, operation);
        QVERIFY(defined.contains(operation));
        QVERIFY(needed.contains(operation));
    }

    void host_needsNothingOfTheTool()
    {
        const QSet<QString> ofTool = symbols(QStringLiteral("VeskHDR"), "--defined-only");
        for (const char *name : {"Tolvarin", "VeskCore", "VeskUI", "VeskRaw"}) {
            const QSet<QString> ofHost = symbols(QLatin1String(name), "--undefined-only");
            for (const QString &symbol : ofHost &ofTool)
                QVERIFY2(!symbol.contains("Vesk"), qPrintable(symbol));
        }
    }

private:
    QSet<QString> defined;
    QSet<QString> needed;
};

QTEST_GUILESS_MAIN(TestHostContract)
#include "tst_host_contract.moc"
