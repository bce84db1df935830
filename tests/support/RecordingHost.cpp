#include "RecordingHost.h"

#include <QImage>

#if defined(__ELF__)
#include <VeskToolHDRWidget.h>

#include <VeskActionManager.h>
#include <VeskCanvas.h>
#include <VeskContext.h>
#include <VeskContextManager.h>
#include <VeskFilterContainer.h>
#include <VeskGlobalSettings.h>
#include <VeskLayer.h>
#include <VeskLayerManager.h>
#include <VeskLog.h>
#include <VeskPictureHost.h>
#include <VeskPictureReader.h>
#include <VeskProgressIndicator.h>
#include <VeskRaw.h>
#include <VeskRawType.h>
#include <VeskUIController.h>

#include <QListWidget>
#include <QMessageBox>

#include <cstdarg>
#include <cstdlib>
#include <dlfcn.h>
#include <optional>
#endif

namespace {

RecordingHost *recorder = nullptr;

} // namespace

RecordingHost::RecordingHost()
{
    recorder = this;
}

RecordingHost::~RecordingHost()
{
    recorder = nullptr;
}

bool RecordingHost::isAvailable()
{
#if defined(__ELF__)
    return true;
#else
    return false;
#endif
}

void RecordingHost::name(const void *object, const QString &text)
{
    names[object] = text;
}

void RecordingHost::note(const QString &call)
{
    lines += call;
}

RecordingHost *RecordingHost::current()
{
    return recorder;
}

QString RecordingHost::nameOf(const void *object) const
{
    if (!object)
        return QStringLiteral("null");
    const auto known = names.find(object);
    return known != names.end() ? known->second : QStringLiteral("?");
}

#if defined(__ELF__)

namespace {

/// The function that the test program's own definition hides.
template <typename Function>
Function hidden(const char *symbol)
{
    void *address = dlsym(RTLD_NEXT, symbol);
    if (!address)
        qFatal("no library defines %s", symbol);
    return reinterpret_cast<Function>(address);
}

/// One recorded call: notes it unless another one is under way.
class Recorded
{
public:
    explicit Recorded(const QString &callLine)
        : host(RecordingHost::current())
        , call(callLine)
    {
        if (host && host->depth++ == 0)
            host->note(call);
    }
    ~Recorded()
    {
        // Still inside, so that calls of the reaction are not remembered.
        if (host && host->depth == 1 && host->afterCall)
            host->afterCall(call);
        if (host)
            --host->depth;
    }
    Recorded(const Recorded &) = delete;
    Recorded &operator=(const Recorded &) = delete;

private:
    RecordingHost *host;
    const QString call;
};

QString called(const void *object)
{
    return recorder ? recorder->nameOf(object) : QString();
}

QString text(bool value)
{
    return value ? QStringLiteral("true") : QStringLiteral("false");
}

} // namespace

// The definitions that stand before those of the libraries. On this binary interface a member
// function is called like a free one whose first argument is the object.

void VeskProgressIndicator::startAnimation()
{
    const Recorded call(QStringLiteral("startAnimation %1 %2").arg(width()).arg(height()));
    hidden<void (*)(VeskProgressIndicator *)>("_ZN21VeskProgressIndicator14startAnimationEv")(this);
}

void QMessageBox::about(QWidget *parent, const QString &title, const QString &message)
{
    const Recorded call(QStringLiteral("about %1|%2|%3").arg(called(parent), title, message));
    hidden<void (*)(QWidget *, const QString &, const QString &)>(
        "_ZN11QMessageBox5aboutEP7QWidgetRK7QStringS4_")(parent, title, message);
}

void VeskLog::Log(const char *format, ...)
{
    va_list arguments;
    va_start(arguments, format);
    const QString message = QString::vasprintf(format, arguments);
    va_end(arguments);
    const Recorded call(QStringLiteral("Log ") + message);
    hidden<void (*)(VeskLog *, const char *, ...)>("_ZN7VeskLog3LogEPKcz")(this, "%s",
                                                                           qPrintable(message));
}

void VeskContext::setCurrentTool(IVeskTool *tool)
{
    const Recorded call(QStringLiteral("setCurrentTool %1 %2").arg(called(this), called(tool)));
    hidden<void (*)(VeskContext *, IVeskTool *)>("_ZN11VeskContext14setCurrentToolEP9IVeskTool")(
        this, tool);
}

void VeskContext::setCanvas(VeskCanvas *newCanvas)
{
    const Recorded call(QStringLiteral("setCanvas %1 %2").arg(called(this), called(newCanvas)));
    hidden<void (*)(VeskContext *, VeskCanvas *)>("_ZN11VeskContext9setCanvasEP10VeskCanvas")(
        this, newCanvas);
}

void VeskContext::setSelection(VeskSelection *newSelection)
{
    const Recorded call(QStringLiteral("context setSelection ") + called(this));
    hidden<void (*)(VeskContext *, VeskSelection *)>(
        "_ZN11VeskContext12setSelectionEP13VeskSelection")(this, newSelection);
}

void VeskContext::setFileName(const QString &newName)
{
    const Recorded call(QStringLiteral("setFileName %1 %2").arg(called(this), newName));
    hidden<void (*)(VeskContext *, const QString &)>("_ZN11VeskContext11setFileNameERK7QString")(
        this, newName);
}

void VeskContext::setSaveAble(bool newSaveAble)
{
    const Recorded call(QStringLiteral("setSaveAble %1 %2").arg(called(this), text(newSaveAble)));
    hidden<void (*)(VeskContext *, bool)>("_ZN11VeskContext11setSaveAbleEb")(this, newSaveAble);
}

void QObject::deleteLater()
{
    auto *context = qobject_cast<VeskContext *>(this);
    std::optional<Recorded> call;
    if (context)
        call.emplace(QStringLiteral("deleteLater ") + called(context));
    static const auto original = hidden<void (*)(QObject *)>("_ZN7QObject11deleteLaterEv");
    original(this);
}

void QWidget::update()
{
    auto *canvas = qobject_cast<VeskCanvas *>(this);
    std::optional<Recorded> call;
    if (canvas)
        call.emplace(QStringLiteral("update ") + called(canvas));
    static const auto original = hidden<void (*)(QWidget *)>("_ZN7QWidget6updateEv");
    original(this);
}

void VeskContextManager::addContext(VeskContext *context)
{
    // The tool's new document: the first that has no name.
    if (recorder && recorder->nameOf(context) == QLatin1String("?"))
        recorder->name(context, QStringLiteral("new"));
    const Recorded call(QStringLiteral("addContext ") + called(context));
    hidden<void (*)(VeskContextManager *, VeskContext *)>(
        "_ZN18VeskContextManager10addContextEP11VeskContext")(this, context);
}

void VeskContextManager::removeContext(VeskContext *context)
{
    const Recorded call(QStringLiteral("removeContext ") + called(context));
    hidden<void (*)(VeskContextManager *, VeskContext *)>(
        "_ZN18VeskContextManager13removeContextEP11VeskContext")(this, context);
}

void VeskContextManager::setCurrentContext(int index)
{
    const Recorded call(QStringLiteral("setCurrentContext ") + called(contextAt(index)));
    hidden<void (*)(VeskContextManager *, int)>("_ZN18VeskContextManager17setCurrentContextEi")(
        this, index);
}

VeskPictureHost *VeskPictureReader::ReadImageToHost(QImage &image)
{
    const Recorded call(
        QStringLiteral("ReadImageToHost %1 %2").arg(image.width()).arg(image.height()));
    return hidden<VeskPictureHost *(*)(VeskPictureReader *, QImage &)>(
        "_ZN17VeskPictureReader15ReadImageToHostER6QImage")(this, image);
}

void VeskLayer::setVeskPictureHost(VeskPictureHost *newHost)
{
    const Recorded call(QStringLiteral("setVeskPictureHost %1|%2 %3")
                            .arg(getName())
                            .arg(newHost->getWidth())
                            .arg(newHost->getHeight()));
    hidden<void (*)(VeskLayer *, VeskPictureHost *)>(
        "_ZN9VeskLayer18setVeskPictureHostEP15VeskPictureHost")(this, newHost);
}

void VeskLayerBase::setAlpha(float newAlpha)
{
    const Recorded call(QStringLiteral("setAlpha %1").arg(double(newAlpha)));
    hidden<void (*)(VeskLayerBase *, float)>("_ZN13VeskLayerBase8setAlphaEf")(this, newAlpha);
}

void VeskLayerManager::addLayer(VeskLayerBase *layer, bool makeCurrent)
{
    const Recorded call(QStringLiteral("addLayer %1|%2").arg(layer->getName(), text(makeCurrent)));
    hidden<void (*)(VeskLayerManager *, VeskLayerBase *, bool)>(
        "_ZN16VeskLayerManager8addLayerEP13VeskLayerBaseb")(this, layer, makeCurrent);
}

void VeskCanvas::resetCanvas()
{
    const Recorded call(QStringLiteral("resetCanvas ") + called(this));
    hidden<void (*)(VeskCanvas *)>("_ZN10VeskCanvas11resetCanvasEv")(this);
}

void VeskCanvas::reSizeCanvas(int newWidth, int newHeight, bool refit)
{
    const Recorded call(
        QStringLiteral("reSizeCanvas %1 %2 %3").arg(newWidth).arg(newHeight).arg(text(refit)));
    hidden<void (*)(VeskCanvas *, int, int, bool)>("_ZN10VeskCanvas12reSizeCanvasEiib")(
        this, newWidth, newHeight, refit);
}

void VeskCanvas::setSelection(VeskSelection *newSelection)
{
    const Recorded call(QStringLiteral("canvas setSelection ") + called(this));
    hidden<void (*)(VeskCanvas *, VeskSelection *)>(
        "_ZN10VeskCanvas12setSelectionEP13VeskSelection")(this, newSelection);
}

void VeskCanvas::moveToCenter(bool repaint)
{
    const Recorded call(QStringLiteral("moveToCenter ") + text(repaint));
    hidden<void (*)(VeskCanvas *, bool)>("_ZN10VeskCanvas12moveToCenterEb")(this, repaint);
}

void VeskCanvas::attachContext(VeskContext *context)
{
    const Recorded call(QStringLiteral("attachContext ") + called(context));
    hidden<void (*)(VeskCanvas *, VeskContext *)>("_ZN10VeskCanvas13attachContextEP11VeskContext")(
        this, context);
}

void VeskCanvas::startCanvasTimer(int milliseconds)
{
    const Recorded call(QStringLiteral("startCanvasTimer %1").arg(milliseconds));
    hidden<void (*)(VeskCanvas *, int)>("_ZN10VeskCanvas16startCanvasTimerEi")(this, milliseconds);
}

void VeskCanvas::stopCanvasTimer()
{
    const Recorded call(QStringLiteral("stopCanvasTimer"));
    hidden<void (*)(VeskCanvas *)>("_ZN10VeskCanvas15stopCanvasTimerEv")(this);
}

void VeskCanvas::updateHistogram()
{
    const Recorded call(QStringLiteral("updateHistogram ") + called(this));
    hidden<void (*)(VeskCanvas *)>("_ZN10VeskCanvas15updateHistogramEv")(this);
}

void VeskUIController::notifyUI(QString event, QList<QVariant> arguments)
{
    const Recorded call(QStringLiteral("notifyUI %1 %2").arg(event).arg(arguments.size()));
    hidden<void (*)(VeskUIController *, QString, QList<QVariant>)>(
        "_ZN16VeskUIController8notifyUIE7QString5QListI8QVariantE")(this, event, arguments);
}

bool VeskGlobalSettings::isHistogramVisible() const
{
    const Recorded call(QStringLiteral("isHistogramVisible"));
    return hidden<bool (*)(const VeskGlobalSettings *)>(
        "_ZNK18VeskGlobalSettings18isHistogramVisibleEv")(this);
}

void VeskActionManager::setEnabled(int id, bool enabled)
{
    const Recorded call(QStringLiteral("setEnabled %1 %2").arg(id).arg(text(enabled)));
    hidden<void (*)(VeskActionManager *, int, bool)>("_ZN17VeskActionManager10setEnabledEib")(
        this, id, enabled);
}

QAction *VeskActionManager::getActionByName(QString actionName) const
{
    const Recorded call(QStringLiteral("getActionByName ") + actionName);
    return hidden<QAction *(*)(const VeskActionManager *, QString)>(
        "_ZNK17VeskActionManager15getActionByNameE7QString")(this, actionName);
}

void VeskDialog::show(bool activate)
{
    const Recorded call(QStringLiteral("show frame ") + text(activate));
    hidden<void (*)(VeskDialog *, bool)>("_ZN10VeskDialog4showEb")(this, activate);
}

bool VeskRawType::isRaw(const QString &path)
{
    const Recorded call(QStringLiteral("isRaw ") + path);
    if (recorder && recorder->rawConversion)
        return true;
    return hidden<bool (*)(const QString &)>("_ZN11VeskRawType5isRawERK7QString")(path);
}

void VeskRaw::activate(const QString &path, QWidget *parent, bool quick)
{
    const Recorded call(
        QStringLiteral("raw activate %1 %2 %3").arg(path, called(parent), text(quick)));
    if (recorder && recorder->rawConversion) {
        recorder->name(this, path);
        return;
    }
    hidden<void (*)(VeskRaw *, const QString &, QWidget *, bool)>(
        "_ZN7VeskRaw8activateERK7QStringP7QWidgetb")(this, path, parent, quick);
}

QImage *VeskRaw::grabConvertedPicture()
{
    const Recorded call(QStringLiteral("grabConvertedPicture"));
    if (recorder && recorder->rawConversion)
        return recorder->rawConversion(called(this));
    return hidden<QImage *(*)(VeskRaw *)>("_ZN7VeskRaw20grabConvertedPictureEv")(this);
}

void VeskToolHDRWidget::updateState()
{
    hidden<void (*)(VeskToolHDRWidget *)>("_ZN17VeskToolHDRWidget11updateStateEv")(this);
    const auto *entries = findChild<QListWidget *>(QStringLiteral("fileList"));
    const Recorded call(QStringLiteral("updateState %1").arg(entries->count()));
}

#endif
