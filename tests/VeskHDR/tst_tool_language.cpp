#include "MessageBoxAnswerer.h"
#include "ToolSession.h"

#include <VeskToolHDRWidget.h>

#include <VeskContext.h>
#include <VeskContextManager.h>
#include <VeskGlobalSettings.h>
#include <VeskLayerBase.h>
#include <VeskLayerManager.h>

#include <QFile>
#include <QTranslator>
#include <QtTest>

/// The tool in German, as the settings say when it is created. The catalogue is read from the
/// library, so that the wording may change.
class TestToolLanguage : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void panel_isTranslatedFromTheStart();
    void boxes_areTranslated();
    void reasonOfATooLargePicture_isTranslatedByTheToolItself();
    void mergedDocument_hasATranslatedLayerAndAnUntranslatedName();

private:
    QString german(const char *context, const char *text) const;

    QTranslator catalogue;
};

QString TestToolLanguage::german(const char *context, const char *text) const
{
    const QString translation = catalogue.translate(context, text);
    if (translation.isEmpty() || translation == QLatin1String(text))
        qFatal("no translation of %s", text);
    return translation;
}

void TestToolLanguage::initTestCase()
{
    VeskGlobalSettings::getInstance()->setLanguage(QStringLiteral("de_DE"));
    QVERIFY(catalogue.load(QStringLiteral(":/veskhdr_de_DE.qm")));
}

void TestToolLanguage::panel_isTranslatedFromTheStart()
{
    const ToolSession session;
    QCOMPARE(session.button("removeBtn")->text(), german("VeskToolHDRWidgetClass", "Remove"));
}

void TestToolLanguage::boxes_areTranslated()
{
    ToolSession session;
    MessageBoxAnswerer boxes;
    session.tool->haveToSave(nullptr);
    session.tool->addFile(QStringLiteral("missing.png"));
    session.tool->apply();
    QCOMPARE(boxes.shown().size(), 3);
    for (const MessageBoxAnswerer::Box &box : boxes.shown())
        QCOMPARE(box.title, german("VeskToolHDR", "Alert"));
    QCOMPARE(boxes.shown()[0].text,
             german("VeskToolHDR", "This document has been modified. Save it?"));
    const QStringList buttons = {german("VeskToolHDR", "Save"), german("VeskToolHDR", "Cancel"),
                                 german("VeskToolHDR", "Discard")};
    QCOMPARE(boxes.shown()[0].buttonTexts, buttons);
    QCOMPARE(boxes.shown()[1].text,
             german("VeskToolHDR", "%1 is not a valid image!").arg(QStringLiteral("missing.png")));
    QCOMPARE(boxes.shown()[2].text,
             german("VeskToolHDR", "HDR merge failed! Pictures shall be in same size."));
}

/// No catalogue but the tool's is installed here, as in an editor that is not ours.
void TestToolLanguage::reasonOfATooLargePicture_isTranslatedByTheToolItself()
{
    ToolSession session;
    const QString path = session.path(QStringLiteral("huge.gif"));
    QFile huge(path);
    QVERIFY(huge.open(QIODevice::WriteOnly));
    huge.write("GIF89a" + QByteArray::fromHex("ffffffff800000000000ffffff" // 65535 x 65535
                                              "2c00000000010001000002024401003b"));
    huge.close();
    MessageBoxAnswerer boxes;
    QVERIFY(!session.tool->addFile(path));
    QCOMPARE(boxes.shown().size(), 1);
    QCOMPARE(boxes.shown().constFirst().text,
             path + QStringLiteral(": ") +
                 german("PictureDecoder", "the picture is too large (%1 x %2 pixels)")
                     .arg(65535)
                     .arg(65535));
}

void TestToolLanguage::mergedDocument_hasATranslatedLayerAndAnUntranslatedName()
{
    ToolSession session;
    session.tool->addFiles(session.writePictures(2));
    session.tool->setCuda(false);
    MessageBoxAnswerer boxes;
    session.tool->apply();
    QCOMPARE(boxes.shown().size(), 1);
    QCOMPARE(boxes.shown().constFirst().title, QStringLiteral("loaded"));
    const VeskContext *document = VeskContextManager::getInstance()->getCurrentContext();
    QCOMPARE(document->getFileName(), QStringLiteral("Untitled Document"));
    QCOMPARE(document->getLayerManager()->layerAt(0)->getName(),
             german("VeskToolHDR", "layer") + QStringLiteral(" 0"));
}

QTEST_MAIN(TestToolLanguage)
#include "tst_tool_language.moc"
