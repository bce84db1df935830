#include "byte_order.h"
#include "maker_note.h"

#include <QtTest>

namespace {

/// A note with one entry of 8 bytes, which stand so far behind the first byte of the block.
QByteArray noteOf(const QByteArray &head, quint32 valuePlace)
{
    return head + byte_order::written(quint16(1), false) + byte_order::written(quint16(1), false) +
           byte_order::written(quint16(2), false) + byte_order::written(quint32(8), false) +
           byte_order::written(valuePlace, false) + QByteArray(4, '\0') + QByteArray("a value", 8);
}

} // namespace

class TestMakerNote : public QObject
{
    Q_OBJECT

private slots:
    void isWhole_valueInsideOrOutside_tells_data()
    {
        QTest::addColumn<QByteArray>("head");
        QTest::newRow("no head") << QByteArray();
        QTest::newRow("SONY") << QByteArray("SONY DSC \0\0\0", 12);
        QTest::newRow("Panasonic") << QByteArray("Panasonic\0\0\0", 12);
    }

    void isWhole_valueInsideOrOutside_tells()
    {
        QFETCH(QByteArray, head);
        constexpr qint64 kPlace = 700;
        const auto inside = quint32(kPlace + head.size() + 18);
        QVERIFY(maker_note::isWhole(noteOf(head, inside), kPlace, false));
        QVERIFY(!maker_note::isWhole(noteOf(head, inside + 1), kPlace, false));
        QVERIFY(!maker_note::isWhole(noteOf(head, kPlace - 1), kPlace, false));
    }

    void isWhole_unknownKind_isTaken()
    {
        QVERIFY(maker_note::isWhole("some text that is no directory", 700, false));
        QVERIFY(maker_note::isWhole({}, 700, true));
    }

    void isSelfContained_kindsThatCountFromTheirOwnStart()
    {
        QVERIFY(maker_note::isSelfContained(QByteArray("Nikon\0\2\x10\0\0", 10)));
        QVERIFY(maker_note::isSelfContained("FUJIFILM\14"));
        QVERIFY(!maker_note::isSelfContained(QByteArray("Nikon\0\1\0", 8)));
        QVERIFY(!maker_note::isSelfContained(noteOf({}, 10)));
    }
};

QTEST_GUILESS_MAIN(TestMakerNote)
#include "tst_maker_note.moc"
