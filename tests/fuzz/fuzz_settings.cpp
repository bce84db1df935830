// Whatever stands in the settings file, the tool and the editor start and the settings can be
// changed.

#include "VeskDeviceInfo.h"
#include "VeskGlobalSettings.h"
#include "fuzz_require.h"
#include "fuzz_target.h"
#include "tool_settings.h"
#include "tool_translator.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QSet>
#include <QTemporaryDir>

namespace {

/// The registry is one of its kind in a program; here it must read the settings again and again.
class Registry : public VeskDeviceInfo
{
};

/// A translation stays for the life of the process, so each language is installed once.
void installLanguageOnce(const QString &language)
{
    static QSet<QString> seen;
    if (seen.contains(language) || seen.size() > 10000)
        return;
    seen.insert(language);
    tool_translator::install();
}

QByteArray contentsOf(const QString &path)
{
    QFile file(path);
    FUZZ_REQUIRE(file.open(QIODevice::ReadOnly));
    return file.readAll();
}

void changeAndReadBack(VeskGlobalSettings &settings)
{
    const bool visible = settings.isHistogramVisible();
    settings.setHistogramVisible(!visible);
    FUZZ_REQUIRE(settings.isHistogramVisible() == !visible);
    settings.setLanguage(QStringLiteral("ja_JP"));
    FUZZ_REQUIRE(settings.language() == QLatin1String("ja_JP"));
    FUZZ_REQUIRE(settings.isHistogramVisible() == !visible);
}

/// A device's name is kept, and nothing else of the settings changes with it.
void chooseDevice(Registry &registry, const VeskGlobalSettings &settings)
{
    const QString language = settings.language();
    registry.setCurrentOpenCLDeviceName(QStringLiteral("A; \"device\""));
    FUZZ_REQUIRE(tool_settings::openCLDevice() == QLatin1String("A; \"device\""));
    FUZZ_REQUIRE(settings.language() == language);
}

} // namespace

int LLVMFuzzerInitialize(int *argc, char ***argv)
{
    // Every change is brought to the disk, so a disk in memory saves most of the time.
    const QString memory = QStringLiteral("/dev/shm");
    static const QTemporaryDir home((QFileInfo(memory).isWritable() ? memory : QDir::tempPath()) +
                                    QStringLiteral("/fuzz-settings-XXXXXX"));
    qputenv("HOME", QFile::encodeName(home.path()));
    qputenv("XDG_DATA_HOME", QFile::encodeName(home.path()));
    new QCoreApplication(*argc, *argv);
    return 0;
}

int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size)
{
    // A new folder for each input.
    static quint64 count = 0;
    QCoreApplication::setApplicationName(QStringLiteral("fuzz%1").arg(++count));
    const QString path = VeskGlobalSettings::configFilePath();
    const QString folder = QFileInfo(path).path();
    FUZZ_REQUIRE(QDir().mkpath(folder));
    QFile file(path);
    FUZZ_REQUIRE(file.open(QIODevice::WriteOnly));
    FUZZ_REQUIRE(file.write(reinterpret_cast<const char *>(data), qint64(size)) == qint64(size));
    file.close();

    VeskGlobalSettings *settings = VeskGlobalSettings::getInstance();
    installLanguageOnce(settings->language());
    Registry registry;
    FUZZ_REQUIRE(registry.isOpenCLCapable() || registry.getCurrentOpenCLDeviceName().isEmpty());
    FUZZ_REQUIRE(contentsOf(path) ==
                 QByteArray(reinterpret_cast<const char *>(data), qsizetype(size)));
    chooseDevice(registry, *settings);
    changeAndReadBack(*settings);
    QDir(folder).removeRecursively();
    return 0;
}
