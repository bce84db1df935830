#include "LookPreview.h"

#include <DocumentHistory.h>
#include <TestPictures.h>
#include <VeskCanvas.h>
#include <VeskContext.h>
#include <picture_document.h>

#include <QtTest>

#include <memory>

class TestLookPreview : public QObject
{
    Q_OBJECT

private slots:
    void init()
    {
        window = std::make_unique<QWidget>();
        const QImage picture = TestPictures::texture({1800, 1200}, 1);
        document.reset(document::create(picture, {}, {}, window.get()));
        canvas = document->getCanvas();
        canvas->resize(640, 480);
        window->resize(640, 480);
        window->show();
        QVERIFY(QTest::qWaitForWindowExposed(window.get()));
        preview = new LookPreview(canvas);
        preview->setSource({[picture] { return QList<QImage>{picture}; }, {1.0}});
        dark.exposure = -4;
    }

    void cleanup()
    {
        document.reset();
        window.reset();
    }

    void viewMoved_showsThePictureUntilTheAnswerIsThere()
    {
        canvas->zoomToActualSize();
        QSignalSpy ready(preview, &LookPreview::ready);
        preview->show(dark);
        QTRY_VERIFY(!ready.isEmpty());
        QCOMPARE(canvas->preview()->picture.size(), canvas->size());
        const QImage before = canvas->grab().toImage();
        QTest::keyClick(canvas, Qt::Key_Right);
        QVERIFY(!canvas->preview());
        const QImage moved = canvas->grab().toImage();
        preview->end();
        QCOMPARE(moved, canvas->grab().toImage());
        QVERIFY(moved != before);
    }

    void viewMoved_isAnsweredAgain()
    {
        canvas->zoomToActualSize();
        QSignalSpy ready(preview, &LookPreview::ready);
        preview->show(dark);
        QTRY_VERIFY(!ready.isEmpty());
        ready.clear();
        QTest::keyClick(canvas, Qt::Key_Right);
        QTRY_VERIFY(!ready.isEmpty());
        QCOMPARE(canvas->preview()->sight, canvas->sight(canvas->canvasSize()));
    }

    /// The answer has the pixels of the screen, so that it is not scaled once more.
    void fittedView_isCoveredInWholePixels()
    {
        canvas->zoomToFit();
        QSignalSpy ready(preview, &LookPreview::ready);
        preview->show(dark);
        QTRY_VERIFY(!ready.isEmpty());
        const QImage shown = canvas->preview()->picture;
        QCOMPARE(shown.size(), QSize(640, 427));
        const QImage seen = canvas->grab(canvas->preview()->sight.place.toAlignedRect()).toImage();
        QCOMPARE(seen.convertToFormat(QImage::Format_RGB32),
                 shown.convertToFormat(QImage::Format_RGB32));
    }

    void transparentPicture_letsTheCheckerboardShowThrough()
    {
        QImage clear(1800, 1200, QImage::Format_ARGB32);
        clear.fill(Qt::transparent);
        preview->setSource({[clear] { return QList<QImage>{clear}; }, {1.0}});
        QSignalSpy ready(preview, &LookPreview::ready);
        preview->show(dark);
        QTRY_VERIFY(!ready.isEmpty());
        const std::unique_ptr<VeskContext> another(document::create(clear, {}, {}, window.get()));
        VeskCanvas *other = another->getCanvas();
        other->resize(canvas->size());
        other->show();
        QCOMPARE(canvas->grab().toImage(), other->grab().toImage());
    }

    /// The document may have the look by then, but its reduced copies take their time.
    void end_leavesNoRoughPicture()
    {
        canvas->zoomToFit();
        QSignalSpy ready(preview, &LookPreview::ready);
        preview->show(dark);
        QTRY_VERIFY(!ready.isEmpty());
        document::setLayerPictures(*document, {TestPictures::texture({1800, 1200}, 2)});
        preview->end();
        QVERIFY(canvas->preview());
        QTRY_VERIFY(!canvas->preview());
    }

    void destroyed_isNotAskedAgain()
    {
        preview->show(dark);
        delete preview;
        canvas->zoomIn();
        QTest::qWait(50);
        QVERIFY(!canvas->preview());
    }

private:
    std::unique_ptr<QWidget> window;
    std::unique_ptr<VeskContext> document;
    VeskCanvas *canvas = nullptr;
    LookPreview *preview = nullptr;
    exposure::Look dark;
};

QTEST_MAIN(TestLookPreview)
#include "tst_LookPreview.moc"
