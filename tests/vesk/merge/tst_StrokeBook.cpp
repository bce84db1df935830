#include "StrokeBook.h"

#include <QtTest>

using brush::Stroke;
using brush::Strokes;

class TestStrokeBook : public QObject
{
    Q_OBJECT

private slots:
    void strokes_followTheirShots();
    void strokes_ofShotsThatAreNotThere_wait();
    void undo_takesTheLastStepBack();
    void setStrokes_areWhatIsThere();
};

namespace {

const QStringList kPaths{QStringLiteral("/f/a.png"), QStringLiteral("/f/b.png"),
                         QStringLiteral("/f/c.png")};

Stroke stroke(int shot, int radius = 5)
{
    return {shot, radius, {{1, 2}, {3, 4}}};
}

} // namespace

void TestStrokeBook::strokes_followTheirShots()
{
    StrokeBook book;
    book.add(kPaths[1], stroke(1));
    book.add({}, stroke(brush::kErase));
    book.add(kPaths[0], stroke(0));
    const Strokes expected{stroke(0), stroke(brush::kErase), stroke(2)};
    QVERIFY(book.strokesOf({kPaths[1], kPaths[2], kPaths[0]}) == expected);
}

void TestStrokeBook::strokes_ofShotsThatAreNotThere_wait()
{
    StrokeBook book;
    book.add(kPaths[1], stroke(1));
    book.add(kPaths[2], stroke(2));
    const Strokes without{stroke(1)};
    QVERIFY(book.strokesOf({kPaths[0], kPaths[2]}) == without);
    const Strokes all{stroke(1), stroke(2)};
    QVERIFY(book.strokesOf(kPaths) == all);
}

void TestStrokeBook::undo_takesTheLastStepBack()
{
    StrokeBook book;
    QVERIFY(!book.canUndo());
    book.undo();
    book.add(kPaths[0], stroke(0));
    book.add(kPaths[1], stroke(1));
    const Strokes both = book.strokesOf(kPaths);
    book.clear();
    QVERIFY(book.strokesOf(kPaths).empty());
    book.add(kPaths[2], stroke(2));
    QCOMPARE(book.strokesOf(kPaths).size(), size_t(1));
    book.undo();
    QVERIFY(book.strokesOf(kPaths).empty());
    book.undo();
    QVERIFY(book.strokesOf(kPaths) == both);
    book.undo();
    book.undo();
    QVERIFY(!book.canUndo());
    QVERIFY(book.strokesOf(kPaths).empty());
}

void TestStrokeBook::setStrokes_areWhatIsThere()
{
    StrokeBook book;
    book.add(kPaths[0], stroke(0));
    const Strokes strokes{stroke(2), stroke(brush::kErase, 9), {1, 0, {{7, 7}}}};
    book.setStrokes(strokes, kPaths);
    QVERIFY(book.strokesOf(kPaths) == strokes);
    book.setStrokes({stroke(3), stroke(1)}, kPaths);
    const Strokes known{stroke(1)};
    QVERIFY(book.strokesOf(kPaths) == known);
}

QTEST_GUILESS_MAIN(TestStrokeBook)
#include "tst_StrokeBook.moc"
