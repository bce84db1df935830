#include "ContactSheet.h"

#include <QImage>
#include <QJsonArray>
#include <QRegularExpression>
#include <QTemporaryDir>
#include <QtTest>

namespace {

QString textOf(const QString &path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? QString::fromUtf8(file.readAll()) : QString();
}

void writePicture(const QString &path)
{
    QImage picture(600, 400, QImage::Format_RGB32);
    picture.fill(Qt::darkGreen);
    QVERIFY(picture.save(path));
}

} // namespace

class TestContactSheet : public QObject
{
    Q_OBJECT

private slots:
    void init()
    {
        folder = std::make_unique<QTemporaryDir>();
        writePicture(path("IMG & 1.jpg"));
        writePicture(path("IMG_2.jpg"));
        writePicture(path("<b>merged.jpg"));
        sheet = {};
        sheet.title = "A & B";
        sheet.brackets = {bracket()};
    }

    void sheet_namesAreEscaped()
    {
        sheet.leftOut = {{"/photos/<i>.jpg", "it's \"alone\""}};
        const QString html = written();
        QVERIFY(html.contains("<title>A &amp; B</title>"));
        QVERIFY(html.contains("IMG &amp; 1.jpg"));
        QVERIFY(html.contains("&lt;b&gt;merged.jpg"));
        QVERIFY(html.contains("href=\"./%3Cb%3Emerged.jpg\""));
        QVERIFY(html.contains("&lt;i&gt;.jpg"));
        QVERIFY(html.contains("doubt &lt;script&gt;"));
        QVERIFY(!html.contains("<b>") && !html.contains("<i>") && !html.contains("<script"));
    }

    void sheet_needsNoOtherFile()
    {
        const QString html = written();
        static const QRegularExpression source("src=\"([^\"]{0,22})");
        int pictures = 0;
        for (auto match = source.globalMatch(html); match.hasNext(); ++pictures)
            QCOMPARE(match.next().captured(1), QString("data:image/jpeg;base64"));
        QCOMPARE(pictures, 3);
        QVERIFY(!html.contains("http") && !html.contains("<link") && !html.contains("@import"));
    }

    void sheet_tellsConfidenceTimesAndReasons()
    {
        const QString html = written();
        QVERIFY(html.contains("alignment 0.87"));
        QVERIFY(html.contains("the others are laid onto it"));
        QVERIFY(html.contains("2.5 s (decode 0.4 s, align 1.0 s)"));
        QVERIFY(html.contains("1/500 s, \u22122 EV"));
        QVERIFY(html.contains("1 brackets of 2 shots: 1 merged"));
    }

    void failedBracket_hasNoResult()
    {
        QJsonObject failed = bracket();
        failed["status"] = "failed";
        failed["output"] = path("missing.jpg");
        sheet.brackets = {failed};
        const QString html = written();
        QVERIFY(html.contains("no result") && html.contains("class=\"state failed\""));
    }

    /// Each element that is opened is closed, in order.
    void sheet_isWellFormed()
    {
        sheet.leftOut = {{"a", "b"}};
        const QString html = written();
        static const QRegularExpression tag("<(/?)([a-z0-9]+)[^>]*>");
        static const QStringList kEmpty{"meta", "img", "br", "link"};
        QStringList open;
        for (auto match = tag.globalMatch(html); match.hasNext();) {
            const auto found = match.next();
            const QString name = found.captured(2);
            if (kEmpty.contains(name))
                continue;
            if (found.captured(1).isEmpty())
                open += name;
            else
                QCOMPARE(open.isEmpty() ? QString() : open.takeLast(), name);
        }
        QVERIFY(open.isEmpty());
        QVERIFY(html.startsWith("<!DOCTYPE html>\n<html lang=\"en\">"));
    }

    void folderThatIsMissing_isTold() { QVERIFY(!sheet.write("/nowhere/sheet.html").isEmpty()); }

private:
    QString path(const QString &name) const { return folder->filePath(name); }

    QJsonObject bracket() const
    {
        return {{"output", path("<b>merged.jpg")},
                {"status", "merged"},
                {"milliseconds", 2500},
                {"steps", QJsonObject{{"decode", 400}, {"align", 1000}}},
                {"pictures", QJsonArray{path("IMG & 1.jpg"), path("IMG_2.jpg")}},
                {"reference", path("IMG_2.jpg")},
                {"confidence", QJsonArray{0.87, 1}},
                {"exposureTime", QJsonArray{0.002, 0.5}},
                {"exposureBias", QJsonArray{-2, QJsonValue()}},
                {"warnings", QJsonArray{"doubt <script>"}}};
    }

    QString written() const
    {
        const QString file = ContactSheet::pathIn(folder->path());
        return sheet.write(file).isEmpty() ? textOf(file) : QString();
    }

    std::unique_ptr<QTemporaryDir> folder;
    ContactSheet sheet;
};

QTEST_GUILESS_MAIN(TestContactSheet)
#include "tst_ContactSheet.moc"
