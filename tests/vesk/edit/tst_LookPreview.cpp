#include "LookPreview.h"

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

    /// Where all the canvas is hidden it does not paint; once the view has moved, it does again.
    void viewMoved_showsThePictureUntilTheAnswerIsThere()
    {
        canvas->zoomToActualSize();
        QSignalSpy ready(preview, &LookPreview::ready);
        preview->show(dark);
        QTRY_VERIFY(!ready.isEmpty());
        QVERIFY(preview->testAttribute(Qt::WA_OpaquePaintEvent));
        QCOMPARE(preview->geometry(), canvas->rect());
        const QImage before = canvas->grab().toImage();
        QTest::keyClick(canvas, Qt::Key_Right);
        QVERIFY(!preview->testAttribute(Qt::WA_OpaquePaintEvent));
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
        QVERIFY(preview->testAttribute(Qt::WA_OpaquePaintEvent));
    }

    /// The answer has the pixels of the screen, so that it is not scaled once more.
    void fittedView_isCoveredInWholePixels()
    {
        canvas->zoomToFit();
        QSignalSpy ready(preview, &LookPreview::ready);
        preview->show(dark);
        QTRY_VERIFY(!ready.isEmpty());
        QCOMPARE(preview->shown().size(), QSize(640, 427));
        QCOMPARE(preview->size(), preview->shown().size());
        QVERIFY(preview->testAttribute(Qt::WA_OpaquePaintEvent));
        const QImage seen = canvas->grab(preview->geometry()).toImage();
        QCOMPARE(seen.convertToFormat(QImage::Format_RGB32),
                 preview->shown().convertToFormat(QImage::Format_RGB32));
    }

    void transparentPicture_letsTheCanvasShowThrough()
    {
        QImage clear(1800, 1200, QImage::Format_ARGB32);
        clear.fill(Qt::transparent);
        preview->setSource({[clear] { return QList<QImage>{clear}; }, {1.0}});
        QSignalSpy ready(preview, &LookPreview::ready);
        preview->show(dark);
        QTRY_VERIFY(!ready.isEmpty());
        QVERIFY(preview->isVisible());
        QVERIFY(!preview->testAttribute(Qt::WA_OpaquePaintEvent));
        const QImage seen = canvas->grab().toImage();
        preview->end();
        QCOMPARE(seen, canvas->grab().toImage());
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
