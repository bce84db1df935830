#include "picture_rating.h"

#include <XmpPacket.h>
#include <metadata_reader.h>
#include <xmp_namespaces.h>

#include <QImage>
#include <QtTest>

class TestPictureRating : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void write_newRating_isReadBackAndLeavesThePictureAlone();
    void write_sidecarThatIsThere_keepsWhatElseItSays();
    void write_damagedSidecar_isRefusedAndKept();
    void write_folderThatIsMissing_saysWhy();
    void write_beyondTheRange_isBrought();
    void in_damagedPacket_isNone();

private:
    static QByteArray bytesOf(const QString &path);
    static int starsOf(const QString &path) { return rating::in(metadata::read(path).xmp); }

    std::unique_ptr<QTemporaryDir> folder;
    QString picture;
};

QByteArray TestPictureRating::bytesOf(const QString &path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

void TestPictureRating::init()
{
    folder = std::make_unique<QTemporaryDir>();
    picture = folder->filePath(QStringLiteral("a.png"));
    QImage image(8, 8, QImage::Format_RGB32);
    image.fill(Qt::red);
    QVERIFY(image.save(picture));
}

void TestPictureRating::write_newRating_isReadBackAndLeavesThePictureAlone()
{
    const QByteArray before = bytesOf(picture);
    QCOMPARE(starsOf(picture), 0);
    QCOMPARE(rating::write(picture, 4), QString());
    QCOMPARE(starsOf(picture), 4);
    QCOMPARE(metadata::sidecarOf(picture), picture + QStringLiteral(".xmp"));
    QCOMPARE(rating::write(picture, 0), QString());
    QCOMPARE(starsOf(picture), 0);
    QCOMPARE(bytesOf(picture), before);
}

void TestPictureRating::write_sidecarThatIsThere_keepsWhatElseItSays()
{
    const QString sidecar = picture + QStringLiteral(".XMP");
    XmpPacket packet;
    packet.setDefaultText(xmp::kDublinCore, "title", QStringLiteral("Window"));
    QFile file(sidecar);
    QVERIFY(file.open(QIODevice::WriteOnly));
    file.write(packet.serialized());
    file.close();
    QCOMPARE(rating::write(picture, 2), QString());
    QCOMPARE(metadata::sidecarOf(picture), sidecar);
    const std::optional<XmpPacket> kept = XmpPacket::parse(bytesOf(sidecar));
    QVERIFY(kept);
    QCOMPARE(kept->items(xmp::kDublinCore, "title"), QStringList{QStringLiteral("Window")});
    QCOMPARE(starsOf(picture), 2);
}

void TestPictureRating::write_damagedSidecar_isRefusedAndKept()
{
    const QString sidecar = picture + QStringLiteral(".xmp");
    QFile file(sidecar);
    QVERIFY(file.open(QIODevice::WriteOnly));
    file.write("<x:xmpmeta");
    file.close();
    QVERIFY(!rating::write(picture, 2).isEmpty());
    QCOMPARE(bytesOf(sidecar), QByteArray("<x:xmpmeta"));
}

void TestPictureRating::write_folderThatIsMissing_saysWhy()
{
    QVERIFY(!rating::write(folder->filePath(QStringLiteral("none/a.png")), 2).isEmpty());
}

void TestPictureRating::write_beyondTheRange_isBrought()
{
    QCOMPARE(rating::write(picture, 9), QString());
    QCOMPARE(starsOf(picture), 5);
    QCOMPARE(rating::write(picture, -1), QString());
    QCOMPARE(starsOf(picture), 0);
}

void TestPictureRating::in_damagedPacket_isNone()
{
    QCOMPARE(rating::in({}), 0);
    QCOMPARE(rating::in("<x xmp:Rating=\"3"), 0);
}

QTEST_GUILESS_MAIN(TestPictureRating)
#include "tst_picture_rating.moc"
