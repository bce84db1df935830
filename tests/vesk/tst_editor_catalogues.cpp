#include "TranslationCatalogue.h"

#include <QMap>
#include <QProcess>
#include <QRegularExpression>
#include <QSet>
#include <QTemporaryDir>
#include <QTranslator>
#include <QtTest>

namespace {

using Message = TranslationCatalogue::Message;

const QStringList kLanguages{"de_DE", "es_ES", "fr_FR", "ja_JP", "ko_KR", "zh_CN", "zh_TW"};

TranslationCatalogue readCatalogue(const QString &language)
{
    return readTranslationCatalogue(QStringLiteral(VESK_CATALOGUES "/vesk_%1.ts").arg(language));
}

/// What tells messages apart.
QString keyOf(const Message &message)
{
    return QStringList{message.context, message.source, message.comment,
                       message.isCounted ? QStringLiteral("counted") : QString()}
        .join(QLatin1Char('|'));
}

QStringList keysOf(const TranslationCatalogue &catalogue)
{
    QStringList keys;
    for (const Message &message : catalogue.messages)
        keys += keyOf(message);
    keys.sort();
    return keys;
}

/// The texts of the sources, as the translators' program extracts them now.
TranslationCatalogue extractFromSources(const QString &file)
{
    QProcess program;
    program.start(QStringLiteral(VESK_LUPDATE),
                  QStringList{"-silent", "-locations", "none", "-target-language", "de_DE"} +
                      QStringLiteral(VESK_TRANSLATED_SOURCES).split(QLatin1Char('|')) +
                      QStringList{"-ts", file});
    program.waitForFinished(60000);
    return readTranslationCatalogue(file);
}

int mnemonicsIn(QString text)
{
    return text.remove(QStringLiteral("&&")).count(QLatin1Char('&'));
}

/// Without what only menus need: "HDR に統合(&M)…" says "HDR に統合".
QString plain(QString text)
{
    text.remove(QRegularExpression(QStringLiteral("\\(&\\w\\)")));
    return text.remove(QLatin1Char('&')).remove(QStringLiteral("…"));
}

} // namespace

/// The editor's catalogues, as the translators write them and as the editor carries them.
class TestEditorCatalogues : public QObject
{
    Q_OBJECT

private slots:
    void catalogue_isForItsLanguage_data() { addLanguages(); }
    void catalogue_isForItsLanguage();
    void catalogue_hasExactlyTheTextsOfTheSources_data() { addLanguages(); }
    void catalogue_hasExactlyTheTextsOfTheSources();
    void translations_areFinishedAndNotEmpty_data() { addLanguages(); }
    void translations_areFinishedAndNotEmpty();
    void translations_keepPlaceholdersMarksAndEllipsis_data() { addLanguages(); }
    void translations_keepPlaceholdersMarksAndEllipsis();
    void fileKinds_haveNoParenthesis_data() { addLanguages(); }
    void fileKinds_haveNoParenthesis();
    void sameSourceText_isTranslatedTheSameEverywhere_data() { addLanguages(); }
    void sameSourceText_isTranslatedTheSameEverywhere();
    void mergeCommand_isCalledAsTheToolCallsItself_data() { addLanguages(); }
    void mergeCommand_isCalledAsTheToolCallsItself();
    void compiledCatalogue_givesEveryTranslation_data() { addLanguages(); }
    void compiledCatalogue_givesEveryTranslation();
    void catalogues_areThoseOfTheTool();

private:
    static void addLanguages();
};

void TestEditorCatalogues::addLanguages()
{
    QTest::addColumn<QString>("language");
    for (const QString &language : kLanguages)
        QTest::newRow(qPrintable(language)) << language;
}

void TestEditorCatalogues::catalogue_isForItsLanguage()
{
    QFETCH(QString, language);
    QCOMPARE(readCatalogue(language).language, language);
}

/// When this fails: build the target update_translations, and translate what it has added.
void TestEditorCatalogues::catalogue_hasExactlyTheTextsOfTheSources()
{
    QFETCH(QString, language);
    static const QTemporaryDir folder;
    static const QStringList expected =
        keysOf(extractFromSources(folder.filePath(QStringLiteral("sources.ts"))));
    QVERIFY(expected.size() > 100);
    QCOMPARE(keysOf(readCatalogue(language)), expected);
}

void TestEditorCatalogues::translations_areFinishedAndNotEmpty()
{
    QFETCH(QString, language);
    for (const Message &message : readCatalogue(language).messages) {
        QVERIFY2(message.type.isEmpty(), qPrintable(message.source));
        QVERIFY2(!message.translations.isEmpty(), qPrintable(message.source));
        for (const QString &translation : message.translations) {
            QVERIFY2(!translation.isEmpty(), qPrintable(message.source));
            QCOMPARE(translation, translation.trimmed());
        }
    }
}

void TestEditorCatalogues::translations_keepPlaceholdersMarksAndEllipsis()
{
    QFETCH(QString, language);
    for (const Message &message : readCatalogue(language).messages) {
        const QByteArray source = message.source.toUtf8();
        for (const QString &translation : message.translations) {
            QVERIFY2(placeholdersOf(translation) == placeholdersOf(message.source), source);
            QVERIFY2(mnemonicsIn(translation) == mnemonicsIn(message.source), source);
            QVERIFY2(translation.endsWith(QStringLiteral("…")) ==
                         message.source.endsWith(QStringLiteral("…")),
                     source);
            // Where the window's title shows that there are unsaved changes.
            QVERIFY2(translation.count(QStringLiteral("[*]")) ==
                         message.source.count(QStringLiteral("[*]")),
                     source);
        }
    }
}

/// The dialog reads the patterns from the one that follows.
void TestEditorCatalogues::fileKinds_haveNoParenthesis()
{
    QFETCH(QString, language);
    int found = 0;
    for (const Message &message : readCatalogue(language).messages) {
        if (!message.source.endsWith(QStringLiteral(" picture")) &&
            message.source != QLatin1String("Pictures") &&
            message.source != QLatin1String("All files"))
            continue;
        QVERIFY(!message.translation().contains(QLatin1Char('(')));
        ++found;
    }
    QVERIFY(found >= 5);
}

void TestEditorCatalogues::sameSourceText_isTranslatedTheSameEverywhere()
{
    QFETCH(QString, language);
    QMap<QString, QSet<QString>> translations;
    for (const Message &message : readCatalogue(language).messages)
        translations[message.source] += message.translation();
    for (auto text = translations.cbegin(); text != translations.cend(); ++text)
        QVERIFY2(text.value().size() == 1, qPrintable(text.key()));
}

void TestEditorCatalogues::mergeCommand_isCalledAsTheToolCallsItself()
{
    QFETCH(QString, language);
    QTranslator tool;
    QTranslator editor;
    QVERIFY(tool.load(QStringLiteral(":/veskhdr_%1.qm").arg(language)));
    QVERIFY(editor.load(QStringLiteral(":/vesk/i18n/vesk_%1.qm").arg(language)));
    const QString command = editor.translate("EditorActions", "&Merge to HDR…");
    QCOMPARE(plain(command), tool.translate("VeskToolHDRWidgetClass", "Merge to HDR"));
}

void TestEditorCatalogues::compiledCatalogue_givesEveryTranslation()
{
    QFETCH(QString, language);
    QTranslator translator;
    QVERIFY(translator.load(QStringLiteral(":/vesk/i18n/vesk_%1.qm").arg(language)));
    for (const Message &message : readCatalogue(language).messages) {
        const QByteArray context = message.context.toUtf8();
        const QByteArray source = message.source.toUtf8();
        if (!message.isCounted) {
            QCOMPARE(translator.translate(context, source), message.translation());
            continue;
        }
        QCOMPARE(translator.translate(context, source, nullptr, 1), message.translations.first());
        QCOMPARE(translator.translate(context, source, nullptr, 5), message.translations.last());
    }
}

void TestEditorCatalogues::catalogues_areThoseOfTheTool()
{
    const QStringList names = QDir(QStringLiteral(VESK_CATALOGUES)).entryList({"*.ts"});
    QStringList expected;
    for (const QString &language : kLanguages) {
        expected += QStringLiteral("vesk_%1.ts").arg(language);
        QVERIFY(QFile::exists(QStringLiteral(":/veskhdr_%1.qm").arg(language)));
    }
    QCOMPARE(names, expected);
}

QTEST_GUILESS_MAIN(TestEditorCatalogues)
#include "tst_editor_catalogues.moc"
