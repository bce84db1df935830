#include "DocumentHistory.h"
#include "TestPictures.h"
#include "picture_document.h"

#include <VeskCanvas.h>
#include <VeskContext.h>
#include <VeskLayer.h>
#include <VeskLayerManager.h>
#include <VeskPictureHost.h>

#include <QWidget>
#include <QtTest>

#include <random>

class TestDocumentHistory : public QObject
{
    Q_OBJECT

private:
    QWidget window;
    std::unique_ptr<VeskContext> context;

    QImage picture() const { return document::layerPictures(*context).constFirst(); }
    DocumentHistory &history() const { return DocumentHistory::of(*context); }

    void change(const QImage &after, std::unique_ptr<PictureStep> back, const QString &kind = {},
                const QVariant &settings = {})
    {
        DocumentEdit edit;
        edit.text = QStringLiteral("Edit");
        edit.pictures = {after};
        edit.steps = std::make_shared<PictureSteps>(std::move(back));
        edit.kind = kind;
        edit.settings = settings;
        history().add(std::move(edit));
    }

    void paint(const QRect &area, QRgb colour)
    {
        const QImage before = picture();
        QImage after = before;
        for (int y = area.top(); y <= area.bottom(); ++y) {
            for (int x = area.left(); x <= area.right(); ++x)
                after.setPixel(x, y, colour);
        }
        change(after, picture_step::ofChange(before, after));
    }

    /// What is still to be made; on another thread, as it were, or not.
    void make(std::unique_ptr<PictureStep> step, bool isAhead = false)
    {
        DocumentEdit edit;
        edit.text = QStringLiteral("Edit");
        edit.steps = std::make_shared<PictureSteps>(std::move(step));
        if (isAhead) {
            edit.pictures = document::layerPictures(*context);
            QVERIFY(edit.steps->apply(edit.pictures));
        }
        history().add(std::move(edit));
    }

    /// Its pictures made ahead or not.
    void step(bool isForward, bool isAhead)
    {
        const auto steps = isAhead ? history().stepAhead(isForward) : nullptr;
        QList<QImage> pictures;
        if (steps) {
            pictures = document::layerPictures(*context);
            QVERIFY(steps->apply(pictures));
        }
        history().step(isForward, pictures);
    }

    void invertAs(const QVariant &settings)
    {
        const QImage before = history().picturesToContinue(QStringLiteral("look"))().constFirst();
        QImage after = before;
        if (settings.toInt() % 2)
            after.invertPixels();
        change(after, picture_step::ofChange(before, after), QStringLiteral("look"), settings);
    }

    void randomEdit(std::mt19937 &random)
    {
        const QImage before = picture();
        const QRect area(int(random() % unsigned(before.width() / 2 + 1)),
                         int(random() % unsigned(before.height() / 2 + 1)), before.width() / 2 + 1,
                         before.height() / 2 + 1);
        switch (random() % 5) {
        case 0:
            return paint(area & before.rect(), QRgb(random()) | 0xFF000000U);
        case 1:
            if (before.width() < 40)
                return;
            return make(picture_step::toCrop(before, area & before.rect()), random() % 2);
        case 2:
            return make(picture_step::toTurn(before, 1 + int(random() % 3)), random() % 2);
        case 3:
            return invertAs(int(random() % 2) + 1);
        default:
            return history().addVisibility(0, random() % 2);
        }
    }

private slots:
    void init()
    {
        context.reset(document::create(TestPictures::texture({240, 170}, 5), QStringLiteral("a"),
                                       QStringLiteral("/a.png"), &window));
    }
    void cleanup() { context.reset(); }

    void add_showsThePictureAndMarksTheDocument()
    {
        QVERIFY(!context->isSaveAble());
        paint({3, 3, 10, 10}, 0xFF112233);
        QCOMPARE(picture().pixel(5, 5), 0xFF112233);
        QVERIFY(context->isSaveAble());
        history().stack().undo();
        QVERIFY(!context->isSaveAble());
    }

    void crop_takesTheCanvasAlong()
    {
        const QImage before = picture();
        make(picture_step::toCrop(before, {10, 10, 50, 40}));
        QCOMPARE(picture(), before.copy(10, 10, 50, 40));
        QCOMPARE(context->getCanvas()->canvasSize(), QSize(50, 40));
        history().stack().undo();
        QCOMPARE(context->getCanvas()->canvasSize(), before.size());
    }

    void undoAllTheWay_givesTheFirstPictureInEveryByte_data()
    {
        QTest::addColumn<unsigned>("seed");
        for (unsigned seed = 1; seed <= 20; ++seed)
            QTest::newRow(qPrintable(QStringLiteral("seed %1").arg(seed))) << seed;
    }

    void undoAllTheWay_givesTheFirstPictureInEveryByte()
    {
        QFETCH(const unsigned, seed);
        std::mt19937 random(seed);
        const QImage first = picture();
        const QImage firstCopy = first.copy();
        for (int i = 0; i < 60; ++i) {
            const unsigned choice = random() % 10;
            if (choice < 2)
                step(false, random() % 2);
            else if (choice == 2)
                step(true, random() % 2);
            else
                randomEdit(random);
        }
        const QImage last = picture().copy();
        const int index = history().stack().index();
        history().stack().setIndex(0);
        QCOMPARE(picture(), firstCopy);
        QCOMPARE(picture().format(), firstCopy.format());
        QVERIFY(context->getLayerManager()->layerAt(0)->isVisible());
        QVERIFY(!context->isSaveAble());
        history().stack().setIndex(index);
        QCOMPARE(picture(), last);
    }

    void stepAhead_onlyForWhatTakesTime()
    {
        QVERIFY(!history().stepAhead(false) && !history().stepAhead(true));
        paint(QRect({}, picture().size()), 0xFF112233); // the pictures change places
        QVERIFY(!history().stepAhead(false));
        paint({3, 3, 10, 10}, 0xFF445566);
        QVERIFY(history().stepAhead(false));
        QVERIFY(!history().stepAhead(true));
        history().addVisibility(0, false);
        QVERIFY(!history().stepAhead(false));
    }

    void picturesToContinue_afterTheDocumentChanged_areNone()
    {
        const QImage first = picture().copy();
        invertAs(1);
        paint({3, 3, 10, 10}, 0xFF445566); // no look: the next begins with it
        QCOMPARE(history().picturesToContinue(QStringLiteral("look"))().constFirst(), picture());
        history().stack().undo();
        const auto late = history().picturesToContinue(QStringLiteral("look"));
        QCOMPARE(late().constFirst(), first);
        history().stack().undo();
        QVERIFY(late().isEmpty());
        QCOMPARE(picture(), first);
    }

    void picturesToContinue_ofNoKind_areThoseThatThereAre()
    {
        paint({3, 3, 10, 10}, 0xFF445566);
        QCOMPARE(history().picturesToContinue({})().constFirst(), picture());
    }

    void editsOfOneKind_becomeOneStepFromTheFirstPicture()
    {
        const QImage first = picture().copy();
        invertAs(1);
        invertAs(3);
        QCOMPARE(history().stack().count(), 1);
        QImage inverted = first;
        inverted.invertPixels();
        QCOMPARE(picture(), inverted);
        QCOMPARE(history().settingsToContinue(QStringLiteral("look")).toInt(), 3);
        history().stack().undo();
        QCOMPARE(picture(), first);
        QVERIFY(!history().settingsToContinue(QStringLiteral("look")).isValid());
    }

    void editsOfOneKind_backToNothing_leaveNoStep()
    {
        const QImage first = picture().copy();
        invertAs(1);
        change(first, picture_step::ofChange(first, first), QStringLiteral("look"), QVariant());
        QCOMPARE(history().stack().count(), 0);
        QCOMPARE(picture(), first);
        QVERIFY(!context->isSaveAble());
    }

    void saved_stepAfterIt_standsForItself()
    {
        invertAs(1);
        history().markSaved();
        QVERIFY(!context->isSaveAble());
        invertAs(1);
        QCOMPARE(history().stack().count(), 2);
        QVERIFY(context->isSaveAble());
        history().stack().undo();
        QVERIFY(!context->isSaveAble());
        history().stack().undo();
        QVERIFY(context->isSaveAble());
    }

    void unsavedFromTheStart_staysSoAfterUndo()
    {
        context->setSaveAble(true);
        paint({0, 0, 5, 5}, 0xFF000000);
        history().stack().undo();
        QVERIFY(context->isSaveAble());
        history().markSaved();
        QVERIFY(!context->isSaveAble());
    }

    void memory_isBounded_oldestStepsGoFirst()
    {
        QImage large(5000, 4000, QImage::Format_RGB32); // 80 MB a step
        large.fill(0);
        context.reset(document::create(large, QStringLiteral("a"), {}, &window));
        for (int i = 1; i <= 10; ++i) {
            QImage next(large.size(), large.format());
            next.fill(QRgb(i) | 0xFF000000U);
            change(next, picture_step::ofChange(picture(), next));
            QVERIFY(history().bytes() <= DocumentHistory::kMostBytes);
        }
        QCOMPARE(history().stack().count(), 6);
        history().stack().setIndex(0);
        QCOMPARE(picture().pixel(0, 0), 0xFF000004);
        QVERIFY(context->isSaveAble()); // the picture of the file is out of reach
        history().stack().setIndex(6);
        QCOMPARE(picture().pixel(0, 0), 0xFF00000A);
    }

    void visibility_backAndForthIsNoStep()
    {
        document::setLayerVisible(*context, 0, false);
        QVERIFY(context->isSaveAble());
        document::setLayerVisible(*context, 0, true);
        QVERIFY(!context->isSaveAble());
        QCOMPARE(history().stack().count(), 0);
    }
};

QTEST_MAIN(TestDocumentHistory)
#include "tst_DocumentHistory.moc"
