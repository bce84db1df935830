#include "TranslationCatalogue.h"

#include <QMap>
#include <QSet>
#include <QTranslator>
#include <QtTest>

namespace {

using Message = TranslationCatalogue::Message;

const QList<QPair<QString, QStringList>> kTexts = {
    // Reasons that the tool shows as the picture reader words them.
    {"PictureDecoder",
     {"the picture is too large (%1 x %2 pixels)", "not enough memory for %1 x %2 pixels",
      "not enough memory"}},
    {"VeskOpenCLDeviceSelection",
     {"VeskOpenCLDeviceSelection",
      "OpenCL Platform",
      "OpenCL Device",
      "Name",
      "Value",
      "Ok",
      "OpenCL Device Selection",
      "OpenCL Platform:",
      "OpenCL Version:",
      "OpenCL Device Name",
      "OpenCL Device Vendor",
      "OpenCL Device Driver Version",
      "OpenCL Device Global Cache Type",
      "OpenCL Device Cores",
      "OpenCL Device Frequency",
      "OpenCL Device Local Memory Size",
      "OpenCL Device Global Memory Size",
      "OpenCL Device Global Cache Size",
      "OpenCL Device Global Cache Line",
      "OpenCL Device Image Support",
      "OpenCL Device Type",
      "OpenCL Device Extensions",
      "None",
      "Read Only",
      "Read and Write",
      "Support",
      "No Support"}},
    {"VeskToolHDR",
     {"Alert", "This document has been modified. Save it?", "Save", "Cancel", "Discard",
      "You can only add up to 5 pictures.", "%1 is not a valid image!",
      "Pictures shall be in same size.", "HDR merge failed! Pictures shall be in same size.",
      "used: %1 ms", "layer"}},
    {"VeskToolHDRWidget", {"Image files(", "Open a image for HDR", "Use CUDA"}},
    {"VeskToolHDRWidgetClass",
     {"Merge to HDR", "Source Pictures",
      // One text. NOLINTNEXTLINE(bugprone-suspicious-missing-comma)
      "Choose two or more pictures from a set of exposures to\nmerge and create a High Dynamic "
      "Range image.",
      "Browse...", "Remove", "OK", "Cancel", "Options", "Use OpenCL with", "Changed device",
      "Attempt to automatically align source images"}},
};

TranslationCatalogue readCatalogue(const QString &locale)
{
    return readTranslationCatalogue(
        QStringLiteral(VESKHDR_CATALOGUES "/veskhdr_%1.ts").arg(locale));
}

/// What a text ends with as far as programs or readers depend on it. The marks of East Asian
/// scripts count as their Western counterparts, and an exclamation counts as a full stop.
QString ending(const QString &text)
{
    if (text.endsWith(QLatin1String("..."))) {
        return QStringLiteral("...");
    }
    switch (text.back().unicode()) {
    case u':':
    case u'：':
        return QStringLiteral(":");
    case u'(':
        return QStringLiteral("(");
    case u'?':
    case u'？':
        return QStringLiteral("?");
    case u'.':
    case u'。':
    case u'!':
    case u'！':
        return QStringLiteral(".");
    default:
        return QString();
    }
}

} // namespace

/// The seven catalogues, as the translators write them and as the tool carries them.
class TestTranslations : public QObject
{
    Q_OBJECT

private slots:
    void textTable_hasThe52MessagesOfTheToolAndThreeReasons();
    void catalogue_isForItsLanguage_data() { addLocales(); }
    void catalogue_isForItsLanguage();
    void catalogue_hasExactlyTheMessages_data() { addLocales(); }
    void catalogue_hasExactlyTheMessages();
    void translations_areFinishedAndNotEmpty_data() { addLocales(); }
    void translations_areFinishedAndNotEmpty();
    void translations_keepPlaceholdersLineBreaksAndEndings_data() { addLocales(); }
    void translations_keepPlaceholdersLineBreaksAndEndings();
    void fileFilter_keepsTheOneParenthesisThatTheChooserReads_data() { addLocales(); }
    void fileFilter_keepsTheOneParenthesisThatTheChooserReads();
    void sameSourceText_isTranslatedTheSameEverywhere_data() { addLocales(); }
    void sameSourceText_isTranslatedTheSameEverywhere();
    void saveQuestion_namesItsThreeAnswersDifferently_data() { addLocales(); }
    void saveQuestion_namesItsThreeAnswersDifferently();
    void compiledCatalogue_givesEveryTranslation_data() { addLocales(); }
    void compiledCatalogue_givesEveryTranslation();

private:
    static void addLocales();
};

void TestTranslations::addLocales()
{
    QTest::addColumn<QString>("locale");
    for (const char *locale : {"zh_TW", "fr_FR", "ko_KR", "ja_JP", "es_ES", "zh_CN", "de_DE"}) {
        QTest::newRow(locale) << locale;
    }
}

void TestTranslations::textTable_hasThe52MessagesOfTheToolAndThreeReasons()
{
    QList<int> counts;
    for (const auto &context : kTexts) {
        counts += QSet<QString>(context.second.begin(), context.second.end()).size();
    }
    QCOMPARE(counts, QList<int>({3, 27, 11, 3, 11}));
}

void TestTranslations::catalogue_isForItsLanguage()
{
    QFETCH(QString, locale);
    QCOMPARE(readCatalogue(locale).language, locale);
}

void TestTranslations::catalogue_hasExactlyTheMessages()
{
    QFETCH(QString, locale);
    QStringList expected;
    for (const auto &context : kTexts) {
        for (const QString &source : context.second) {
            expected += context.first + QLatin1Char('|') + source;
        }
    }
    QStringList found;
    for (const Message &message : readCatalogue(locale).messages) {
        found += message.context + QLatin1Char('|') + message.source;
    }
    expected.sort();
    found.sort();
    QCOMPARE(found, expected);
}

void TestTranslations::translations_areFinishedAndNotEmpty()
{
    QFETCH(QString, locale);
    for (const Message &message : readCatalogue(locale).messages) {
        QVERIFY2(message.type.isEmpty(), qPrintable(message.source));
        QVERIFY2(!message.translation().trimmed().isEmpty(), qPrintable(message.source));
        QCOMPARE(message.translation(), message.translation().trimmed());
    }
}

void TestTranslations::translations_keepPlaceholdersLineBreaksAndEndings()
{
    QFETCH(QString, locale);
    for (const Message &message : readCatalogue(locale).messages) {
        const QByteArray source = message.source.toUtf8();
        QVERIFY2(placeholdersOf(message.translation()) == placeholdersOf(message.source), source);
        QVERIFY2(message.translation().count('\n') == message.source.count('\n'), source);
        QVERIFY2(ending(message.translation()) == ending(message.source), source);
    }
}

void TestTranslations::fileFilter_keepsTheOneParenthesisThatTheChooserReads()
{
    QFETCH(QString, locale);
    for (const Message &message : readCatalogue(locale).messages) {
        if (message.source == QLatin1String("Image files(")) {
            QCOMPARE(message.translation().count(QLatin1Char('(')), 1);
            QVERIFY(!message.translation().contains(QLatin1Char(')')));
        }
    }
}

void TestTranslations::sameSourceText_isTranslatedTheSameEverywhere()
{
    QFETCH(QString, locale);
    QMap<QString, QSet<QString>> translations;
    for (const Message &message : readCatalogue(locale).messages) {
        translations[message.source.toUpper()] += message.translation(); // "Ok" and "OK" are one
    }
    for (auto it = translations.cbegin(); it != translations.cend(); ++it) {
        QVERIFY2(it.value().size() == 1, qPrintable(it.key()));
    }
}

void TestTranslations::saveQuestion_namesItsThreeAnswersDifferently()
{
    QFETCH(QString, locale);
    QSet<QString> answers;
    for (const Message &message : readCatalogue(locale).messages) {
        if (message.context == QLatin1String("VeskToolHDR") &&
            QStringList({"Save", "Cancel", "Discard"}).contains(message.source))
            answers += message.translation();
    }
    QCOMPARE(answers.size(), 3);
}

void TestTranslations::compiledCatalogue_givesEveryTranslation()
{
    QFETCH(QString, locale);
    QTranslator translator;
    QVERIFY(translator.load(QStringLiteral(":/veskhdr_%1.qm").arg(locale)));
    for (const Message &message : readCatalogue(locale).messages) {
        QCOMPARE(translator.translate(message.context.toUtf8(), message.source.toUtf8()),
                 message.translation());
    }
}

QTEST_GUILESS_MAIN(TestTranslations)
#include "tst_translations.moc"
