#include "stroke_text.h"

#include <QtTest>

using brush::Stroke;
using brush::Strokes;

class TestStrokeText : public QObject
{
    Q_OBJECT

private slots:
    void toText_strokes_isTheWord();
    void fromText_word_givesTheStrokes();
    void fromText_otherWords_giveNothing_data();
    void fromText_otherWords_giveNothing();
};

namespace {

const QString kText = QStringLiteral("2:80:400,300,10,-5,0,7+0:3:-4,5+64@12,0");

Strokes strokes()
{
    return {{1, 80, {{400, 300}, {410, 295}, {410, 302}}},
            {brush::kErase, 3, {{-4, 5}}},
            {63, 0, {{12, 0}}}};
}

} // namespace

void TestStrokeText::toText_strokes_isTheWord()
{
    QCOMPARE(brush::toText(strokes()), kText);
    QCOMPARE(brush::toText({}), QString());
}

void TestStrokeText::fromText_word_givesTheStrokes()
{
    const std::optional<Strokes> read = brush::fromText(kText);
    QVERIFY(read);
    QVERIFY(*read == strokes());
}

void TestStrokeText::fromText_otherWords_giveNothing_data()
{
    QTest::addColumn<QString>("text");
    for (const char *text : {"",
                             "+",
                             "2:80",
                             "2:80:",
                             "2:80:1",
                             "2:80:1,2,3",
                             "2:80:1,2+",
                             "65:80:1,2",
                             "-1:80:1,2",
                             "2:0:1,2",
                             "2:-3:1,2",
                             "2:80:a,2",
                             "2:80:1,2:3",
                             "2@1",
                             "2@1,2,3,4",
                             "0@1,2",
                             "2@1,2@3",
                             "2:80:99999999,2",
                             "2:80:16777216,1,1,0",
                             "2:80:1.5,2",
                             "2:99999999999:1,2"})
        QTest::newRow(text) << QString::fromLatin1(text);
}

void TestStrokeText::fromText_otherWords_giveNothing()
{
    QFETCH(QString, text);
    QVERIFY(!brush::fromText(text));
}

QTEST_GUILESS_MAIN(TestStrokeText)
#include "tst_stroke_text.moc"
