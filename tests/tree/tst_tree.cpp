#include <QDirIterator>
#include <QRegularExpression>
#include <QtTest>

namespace {

const QDir kSource(QStringLiteral(SOURCE_FOLDER));
const QStringList kFolders{"bench",    "cmake",   "completions", "docs",
                           "examples", "scripts", "src",         "tests"};

/// Files and folders of the tree, relative to its top.
QStringList pathsBelow(const QString &folder)
{
    QStringList paths{folder};
    QDirIterator below(kSource.filePath(folder), QDir::AllEntries | QDir::NoDotAndDotDot,
                       QDirIterator::Subdirectories);
    while (below.hasNext())
        paths += kSource.relativeFilePath(below.next());
    return paths;
}

QString textOf(const QString &path)
{
    QFile file(kSource.filePath(path));
    return file.open(QIODevice::ReadOnly) ? QString::fromUtf8(file.readAll()) : QString();
}

/// Targets of the links of a Markdown text that lead to files.
QStringList linksIn(const QString &text)
{
    static const QRegularExpression link(QStringLiteral(R"(\]\(([^)#:]+)(#[^)]*)?\))"));
    QStringList links;
    for (auto match = link.globalMatch(text); match.hasNext();)
        links += match.next().captured(1);
    return links;
}

} // namespace

/// What holds for the tree as a whole.
class TestTree : public QObject
{
    Q_OBJECT

private slots:
    /// Where file names ignore case, a clone would lose files.
    void paths_differByMoreThanLetterCase()
    {
        QMap<QString, QString> seen;
        for (const QString &folder : kFolders) {
            for (const QString &path : pathsBelow(folder)) {
                const QString known = seen.value(path.toLower());
                QVERIFY2(known.isEmpty(), qPrintable(path + " and " + known));
                seen.insert(path.toLower(), path);
            }
        }
        QVERIFY(seen.size() > 500);
    }

    void links_inDocuments_leadSomewhere()
    {
        QStringList documents{"README.md", "CONTRIBUTING.md"};
        for (const QString &path : pathsBelow(QStringLiteral("docs"))) {
            if (path.endsWith(QLatin1String(".md")))
                documents += path;
        }
        int links = 0;
        for (const QString &document : documents) {
            const QDir beside = QFileInfo(kSource.filePath(document)).dir();
            for (const QString &link : linksIn(textOf(document))) {
                QVERIFY2(QFileInfo::exists(beside.filePath(link)),
                         qPrintable(document + ": " + link));
                ++links;
            }
        }
        QVERIFY(links > 30);
    }

    /// A room may use what stands below it; the order of the rooms is that of the build.
    void engineAndPictures_includeNoWidgets()
    {
        static const QRegularExpression widget(
            QStringLiteral("#include <(QApplication|QDialog|QMessageBox|QWidget|QtWidgets)"));
        for (const char *room : {"src/pictures", "src/VeskHDR/engine", "src/brackets",
                                 "src/command_line", "src/host/VeskCore"}) {
            for (const QString &path : pathsBelow(QLatin1String(room)))
                QVERIFY2(!textOf(path).contains(widget), qPrintable(path));
        }
    }
};

QTEST_GUILESS_MAIN(TestTree)
#include "tst_tree.moc"
