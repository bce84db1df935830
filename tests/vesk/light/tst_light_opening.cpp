// Files that hold light, opened in the editor's window.

#include "DocumentArea.h"
#include "EditorWindow.h"
#include "LightWindow.h"
#include "MainWindow.h"

#include <picture_writer.h>

#include <QColorSpace>
#include <QPushButton>
#include <QtTest>

class TestLightOpening : public QObject, private EditorWindow
{
    Q_OBJECT

private slots:
    void init() { setUp(); }
    void cleanup() { tearDown(); }
    void file_ofLight_getsAWindowOfItsOwn();
    void window_closed_takesTheLightAlong();

private:
    QString addLight(const QString &name) const;
};

QString TestLightOpening::addLight(const QString &name) const
{
    QImage light(60, 40, QImage::Format_RGBX32FPx4);
    light.fill(QColor::fromRgbF(0.5F, 0.25F, 0.125F));
    light.setColorSpace(QColorSpace::SRgbLinear);
    const QString path = pictures->path(name);
    const WriteResult result = picture::write(light, path, PictureFormat::RadianceHdr, {});
    return result.error == OutputFile::Error::None ? path : QString();
}

void TestLightOpening::file_ofLight_getsAWindowOfItsOwn()
{
    const QString path = addLight(QStringLiteral("room.hdr"));
    window->openPaths({path});
    QTRY_VERIFY(window->findChild<LightWindow *>());
    const auto *shown = window->findChild<LightWindow *>();
    QCOMPARE(shown->light().path, path);
    QCOMPARE(shown->light().picture.size(), QSize(60, 40));
    QCOMPARE(documents->documents().size(), 0);
    QVERIFY(shown->windowTitle().contains(QStringLiteral("room")));
    shown->findChild<QPushButton *>(QStringLiteral("developButton"))->click();
    QTRY_COMPARE(documents->documents().size(), 1);
}

void TestLightOpening::window_closed_takesTheLightAlong()
{
    window->openPaths({addLight(QStringLiteral("room.hdr"))});
    QTRY_VERIFY(window->findChild<LightWindow *>());
    QPointer<LightWindow> shown = window->findChild<LightWindow *>();
    QVERIFY(window->close());
    QTRY_VERIFY(!shown || !shown->isVisible());
}

QTEST_MAIN(TestLightOpening)
#include "tst_light_opening.moc"
