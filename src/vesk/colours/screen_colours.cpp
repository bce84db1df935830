#include "screen_colours.h"

#include "ScreenConversion.h"
#include "editor_settings.h"

#include <VeskScreenColours.h>
#include <colour_profile.h>

#include <QCache>
#include <QColorSpace>
#include <QFile>
#include <QMutex>

namespace {

using Shared = std::shared_ptr<const ScreenConversion>;

constexpr qint64 kLargestProfile = 16 * 1024 * 1024;

/// The screen's profile and the conversions made last: a folder of pictures needs one or two.
class Screen
{
public:
    static Screen &instance()
    {
        static auto *const screen = new Screen;
        return *screen;
    }

    void setProfile(const QByteArray &bytes)
    {
        const QMutexLocker lock(&mutex);
        profile = bytes;
    }

    Shared toScreen(const QColorSpace &space)
    {
        const QMutexLocker lock(&mutex);
        return conversion(space.iccProfile(), profile);
    }

    Shared toCommon(const QColorSpace &space)
    {
        const QMutexLocker lock(&mutex);
        return conversion(space.iccProfile(), {});
    }

private:
    static constexpr int kKept = 16;

    Shared conversion(const QByteArray &from, const QByteArray &to)
    {
        const std::pair<QByteArray, QByteArray> key(from, to);
        if (!made.contains(key))
            made.insert(key, new Shared(std::make_shared<const ScreenConversion>(from, to)));
        return *made.object(key);
    }

    QMutex mutex;
    QByteArray profile; // empty: sRGB
    QCache<std::pair<QByteArray, QByteArray>, Shared> made{kKept};
};

VeskScreenColours::Conversion asFunction(const Shared &conversion)
{
    if (conversion->isIdentity())
        return {};
    return [conversion](QImage &picture) { conversion->apply(picture); };
}

/// Empty when it cannot be read.
QByteArray readProfile(const QString &path)
{
    QFile file(path);
    if (path.isEmpty() || !file.open(QIODevice::ReadOnly) || file.size() > kLargestProfile)
        return {};
    const QByteArray bytes = file.readAll();
    return colour_profile::fitsRgbPixels(bytes) ? bytes : QByteArray();
}

} // namespace

void screen_colours::applySettings()
{
    Screen::instance().setProfile(readProfile(settings::screenProfile()));
    VeskScreenColours::getInstance().setMakers(
        [](const QColorSpace &from) { return asFunction(Screen::instance().toScreen(from)); },
        [](const QColorSpace &from) { return asFunction(Screen::instance().toCommon(from)); });
}

bool screen_colours::isScreenProfile(const QString &path)
{
    return !readProfile(path).isEmpty();
}

void screen_colours::setProfileFile(const QString &path)
{
    settings::setScreenProfile(path);
    applySettings();
}

QImage screen_colours::shown(const QImage &picture)
{
    const Shared conversion = Screen::instance().toScreen(picture.colorSpace());
    if (picture.isNull() || conversion->isIdentity())
        return picture;
    QImage converted = picture.convertToFormat(QImage::Format_ARGB32_Premultiplied);
    conversion->apply(converted);
    return converted;
}
