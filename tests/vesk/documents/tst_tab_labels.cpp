#include "tab_labels.h"

#include <QTest>

class TestTabLabels : public QObject
{
    Q_OBJECT

private slots:
    void shortened_data();
    void shortened();
    void shortened_manyNames_tellAllApart();
};

void TestTabLabels::shortened_data()
{
    QTest::addColumn<QStringList>("names");
    QTest::addColumn<QStringList>("labels");
    const auto row = [](const char *title, const QStringList &names, const QStringList &labels) {
        QTest::newRow(title) << names << labels;
    };
    row("none", {}, {});
    row("one", {"IMG_0412.jpg"}, {"IMG_0412"});
    row("numbers stay whole", {"IMG_0409.jpg", "IMG_0410.jpg", "IMG_0411.jpg"},
        {"…0409", "…0410", "…0411"});
    row("of dates the time", {"20230401_120301.jpg", "20230401_120303.jpg"},
        {"…120301", "…120303"});
    row("words stay whole", {"sunset.jpg", "sunrise.jpg"}, {"sunset", "sunrise"});
    row("last word", {"old window.png", "old wall.png"}, {"…window", "…wall"});
    row("suffix tells", {"IMG_0412.jpg", "IMG_0412.CR2"}, {"…0412.jpg", "…0412.CR2"});
    row("a stranger among them", {"Untitled Document", "IMG_1.jpg", "IMG_2.jpg"},
        {"Untitled Document", "…1", "…2"});
    row("merged beside its source", {"IMG_1.jpg", "IMG_1-HDR.jpg"}, {"…1", "…1-HDR"});
    row("the same name twice", {"a_1.jpg", "a_1.jpg"}, {"a_1.jpg", "a_1.jpg"});
    row("little in common", {"s1.png", "s2.png"}, {"s1", "s2"});
}

void TestTabLabels::shortened()
{
    QFETCH(QStringList, names);
    QTEST(tab_labels::shortened(names), "labels");
}

void TestTabLabels::shortened_manyNames_tellAllApart()
{
    QStringList names;
    for (int i = 0; i < 300; ++i)
        names.append(QStringLiteral("holiday 2023 %1.jpg").arg(i * 37 % 1000));
    QStringList labels = tab_labels::shortened(names);
    QCOMPARE(labels.size(), names.size());
    QCOMPARE(labels.removeDuplicates(), 0);
    QCOMPARE(labels.at(5), QStringLiteral("…185"));
}

QTEST_GUILESS_MAIN(TestTabLabels)
#include "tst_tab_labels.moc"
