#include <VeskGlobalSettings.h>

#include <QtTest>

namespace {

VeskGlobalSettings *settings()
{
    return VeskGlobalSettings::getInstance();
}

void writeConfig(const QByteArray &contents)
{
    const QString path = VeskGlobalSettings::configFilePath();
    QDir().mkpath(QFileInfo(path).path());
    QFile file(path);
    QVERIFY(file.open(QIODevice::WriteOnly));
    file.write(contents);
}

} // namespace

class TestVeskGlobalSettings : public QObject
{
    Q_OBJECT

private slots:
    void init() { QFile::remove(VeskGlobalSettings::configFilePath()); }

    void configFilePath_isConfigIniInTheDataLocation()
    {
        QCOMPARE(VeskGlobalSettings::configFilePath(),
                 QStandardPaths::writableLocation(QStandardPaths::AppLocalDataLocation) +
                     QStringLiteral("/config.ini"));
    }

    void missingFile_readsAsDefaults()
    {
        QVERIFY(settings()->isHistogramVisible());
        QVERIFY(settings()->language().isEmpty());
        QVERIFY(!settings()->value(QStringLiteral("other")).isValid());
        QCOMPARE(settings()->value(QStringLiteral("other"), 7).toInt(), 7);
    }

    void setHistogramVisible_isKeptInTheFileAndReportedOnce()
    {
        QSignalSpy changed(settings(), &VeskGlobalSettings::histogramVisibleChanged);
        settings()->setHistogramVisible(true);
        QCOMPARE(changed.count(), 0);
        settings()->setHistogramVisible(false);
        settings()->setHistogramVisible(false);
        QCOMPARE(changed.count(), 1);
        QVERIFY(!settings()->isHistogramVisible());
        const QSettings file(VeskGlobalSettings::configFilePath(), QSettings::IniFormat);
        QCOMPARE(file.value(QStringLiteral("histogramVisible")).toBool(), false);
    }

    void language_isTheTopLevelKeyThatToolsRead()
    {
        settings()->setLanguage(QStringLiteral("de_DE"));
        QCOMPARE(settings()->language(), QStringLiteral("de_DE"));
        const QSettings file(VeskGlobalSettings::configFilePath(), QSettings::IniFormat);
        QCOMPARE(file.value(QStringLiteral("language")).toString(), QStringLiteral("de_DE"));
    }

    void otherKeysOfTheFile_surviveAndAreSeenAtOnce()
    {
        {
            QSettings tool(VeskGlobalSettings::configFilePath(), QSettings::IniFormat);
            tool.setValue(QStringLiteral("OpenCLDevice"), QStringLiteral("a device"));
        }
        settings()->setLanguage(QStringLiteral("fr_FR"));
        QCOMPARE(settings()->value(QStringLiteral("OpenCLDevice")).toString(),
                 QStringLiteral("a device"));
    }

    void setValue_invalid_removesTheKey()
    {
        const QString key = QStringLiteral("window/state");
        settings()->setValue(key, QByteArray("\0state", 6));
        QCOMPARE(settings()->value(key).toByteArray(), QByteArray("\0state", 6));
        settings()->setValue(key, QVariant());
        QVERIFY(!settings()->value(key).isValid());
    }

    void damagedFile_readsAsDefaults()
    {
        const char rubbish[] = "\xff\xfe\0[[[=\nhistogramVisible";
        writeConfig(QByteArray(rubbish, sizeof rubbish));
        QVERIFY(settings()->isHistogramVisible());
        QVERIFY(settings()->language().isEmpty());
    }

    void getInstance_deletedWithItsParent_isCreatedAnew()
    {
        delete settings();
        auto parent = std::make_unique<QObject>();
        const QPointer<VeskGlobalSettings> first = VeskGlobalSettings::getInstance(parent.get());
        QCOMPARE(first->parent(), parent.get());
        QCOMPARE(VeskGlobalSettings::getInstance(), first.data());
        parent.reset();
        QVERIFY(first.isNull());
        QVERIFY(settings());
        QVERIFY(settings()->isHistogramVisible());
    }
};

QTEST_GUILESS_MAIN(TestVeskGlobalSettings)
#include "tst_VeskGlobalSettings.moc"
