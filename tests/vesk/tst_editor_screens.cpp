// The editor's windows on the screen that the environment gives, in each of their languages: they
// fit, nothing is clipped, and a screen reader has a name for every control.

#include "BatchWindow.h"
#include "BracketTable.h"
#include "DocumentArea.h"
#include "JpegQualityDialog.h"
#include "LightWindow.h"
#include "MainWindow.h"
#include "MergePreview.h"
#include "MergeWorkspace.h"
#include "ShotList.h"
#include "TestPictures.h"
#include "editor_application.h"
#include "language_choice.h"

#include <VeskActionManager.h>

#include <QAbstractItemView>
#include <QAbstractSlider>
#include <QAbstractSpinBox>
#include <QAccessible>
#include <QComboBox>
#include <QDockWidget>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QScrollArea>
#include <QScrollBar>
#include <QStyleOptionComboBox>
#include <QStyleOptionGroupBox>
#include <QToolButton>
#include <QTranslator>
#include <QtTest>

namespace {

constexpr int kPatienceMs = 60000;
constexpr QSize kSmallScreen(1366, 768);
constexpr QSize kDesktopFrame(24, 64); // a title bar, a panel of the desktop, and margins
constexpr QSize kShotSize(320, 240);

int textWidth(const QWidget &widget, QString text)
{
    return widget.fontMetrics().size(Qt::TextShowMnemonic, text).width();
}

/// Of the entry that is shown; long names of shots may be cut.
int neededWidth(const QComboBox &box)
{
    QStyleOptionComboBox option;
    option.initFrom(&box);
    const QRect field = box.style()->subControlRect(QStyle::CC_ComboBox, &option,
                                                    QStyle::SC_ComboBoxEditField, &box);
    return textWidth(box, box.currentText()) + box.width() - field.width();
}

QSize neededSize(const QWidget &widget)
{
    if (const auto *label = qobject_cast<const QLabel *>(&widget)) {
        if (label->wordWrap())
            return {1, label->heightForWidth(label->width())};
        return label->sizeHint();
    }
    if (const auto *button = qobject_cast<const QPushButton *>(&widget))
        return {textWidth(*button, button->text()) + 8, button->sizeHint().height()};
    if (const auto *box = qobject_cast<const QComboBox *>(&widget))
        return {neededWidth(*box), box->sizeHint().height()};
    if (const auto *group = qobject_cast<const QGroupBox *>(&widget))
        return {textWidth(*group, group->title()), group->minimumSizeHint().height()};
    return widget.sizeHint();
}

bool showsText(const QWidget &widget)
{
    const auto *button = qobject_cast<const QAbstractButton *>(&widget);
    return (button && !button->text().isEmpty()) || qobject_cast<const QLabel *>(&widget) ||
           qobject_cast<const QComboBox *>(&widget) || qobject_cast<const QGroupBox *>(&widget) ||
           qobject_cast<const QAbstractSpinBox *>(&widget);
}

/// Whether nothing around it cuts it off; what scrolls may be further down.
bool isInside(const QWidget &widget)
{
    const QWidget *part = &widget;
    while (!part->isWindow()) {
        const QWidget *around = part->parentWidget();
        const auto *scrolls = qobject_cast<const QAbstractScrollArea *>(around->parentWidget());
        const QRect place(widget.mapTo(around, QPoint()), widget.size());
        const bool isBeside = place.left() < 0 || place.right() >= around->width();
        if (isBeside || (!scrolls && (place.top() < 0 || place.bottom() >= around->height())))
            return false;
        if (scrolls)
            return true;
        part = around;
    }
    return true;
}

/// One phrase for each text that cannot be read whole.
QString clippedIn(const QWidget &window)
{
    QStringList clipped;
    for (const QWidget *widget : window.findChildren<QWidget *>()) {
        if (!widget->isVisible() || widget->window() != &window || !showsText(*widget))
            continue;
        const QSize needed = neededSize(*widget);
        if (widget->width() >= needed.width() && widget->height() >= needed.height() &&
            isInside(*widget))
            continue;
        clipped += QStringLiteral("%1 %2 (%3): %4 x %5, needs %6 x %7%8")
                       .arg(widget->metaObject()->className(), widget->objectName(),
                            widget->property("text").toString())
                       .arg(widget->width())
                       .arg(widget->height())
                       .arg(needed.width())
                       .arg(needed.height())
                       .arg(isInside(*widget) ? "" : ", cut off");
    }
    return clipped.join(QLatin1Char('\n'));
}

bool isControl(const QWidget &widget)
{
    // Qt's own parts; the crosses of tabs take no keys, and Ctrl+W does the same.
    if (widget.objectName().startsWith(QLatin1String("qt_")) || widget.inherits("CloseButton") ||
        qobject_cast<const QScrollBar *>(&widget))
        return false;
    return qobject_cast<const QAbstractButton *>(&widget) ||
           qobject_cast<const QComboBox *>(&widget) || qobject_cast<const QLineEdit *>(&widget) ||
           qobject_cast<const QAbstractSlider *>(&widget) ||
           qobject_cast<const QAbstractSpinBox *>(&widget) ||
           (qobject_cast<const QAbstractItemView *>(&widget) &&
            widget.focusPolicy() != Qt::NoFocus);
}

/// By itself, by what stands on it, or by the label beside it.
bool isNamed(QWidget &widget)
{
    const auto *button = qobject_cast<const QAbstractButton *>(&widget);
    const QAccessibleInterface *spoken = QAccessible::queryAccessibleInterface(&widget);
    return !widget.accessibleName().isEmpty() || (button && !button->text().isEmpty()) ||
           (spoken && !spoken->relations(QAccessible::Label).isEmpty());
}

/// The controls that a screen reader has no word for.
QString namelessIn(const QWidget &window)
{
    QStringList nameless;
    for (QWidget *widget : window.findChildren<QWidget *>()) {
        if (!widget->isVisible() || widget->window() != &window || !isControl(*widget))
            continue;
        if (!isNamed(*widget))
            nameless += QStringLiteral("%1 %2 in %3")
                            .arg(widget->metaObject()->className(), widget->objectName(),
                                 widget->parentWidget()->metaObject()->className());
    }
    return nameless.join(QLatin1Char('\n'));
}

/// The texts whose underlined letter another one in the window has, too.
QString sameLettersIn(const QWidget &window)
{
    QMap<QChar, QStringList> texts;
    for (const QWidget *widget : window.findChildren<QWidget *>()) {
        const auto *label = qobject_cast<const QLabel *>(widget);
        const auto *button = qobject_cast<const QAbstractButton *>(widget);
        const bool isTool = qobject_cast<const QToolButton *>(widget); // its letter is the menu's
        if (!widget->isVisible() || widget->window() != &window || isTool ||
            (label && !label->buddy()) || !(label || button))
            continue;
        const QString text = widget->property("text").toString();
        const int mark = int(QString(text).replace("&&", "  ").indexOf('&'));
        if (mark >= 0)
            texts[text.at(mark + 1).toUpper()] += text;
    }
    QStringList same;
    for (const QStringList &group : std::as_const(texts)) {
        if (group.size() > 1)
            same += group.join(" and ");
    }
    return same.join('\n');
}

} // namespace

class TestEditorScreens : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void cleanup();
    void mainWindow_isReadable_data() { addLanguages(); }
    void mainWindow_isReadable();
    void workspace_isReadable_data() { addLanguages(); }
    void workspace_isReadable();
    void batchWindow_isReadable_data() { addLanguages(); }
    void batchWindow_isReadable();
    void lightWindow_isReadable_data() { addLanguages(); }
    void lightWindow_isReadable();
    void qualityDialog_isReadable_data() { addLanguages(); }
    void qualityDialog_isReadable();
    void clippedText_isFound();

private:
    static void addLanguages();
    static void start(const QString &language);
    static void check(QWidget &window, QSize smallest = {});
    static void settle();

    std::unique_ptr<TestPictures> pictures;
};

void TestEditorScreens::initTestCase()
{
    pictures = std::make_unique<TestPictures>();
    pictures->addCameraBracket("IMG_041", 3, 0, kShotSize);
    pictures->addCameraBracket("IMG_042", 3, 5, kShotSize);
    pictures->add("loose.jpg", kShotSize, 3);
}

void TestEditorScreens::addLanguages()
{
    QTest::addColumn<QString>("language");
    QTest::newRow("English") << QString();
    for (const QString &language : language_choice::translated())
        QTest::newRow(qPrintable(language)) << language;
}

void TestEditorScreens::start(const QString &language)
{
    language_choice::choose(language);
    workspace::setUpEditor(*qApp);
}

void TestEditorScreens::cleanup()
{
    delete VeskActionManager::getInstance({}); // with the actions that all windows share
    qDeleteAll(qApp->findChildren<QTranslator *>());
}

void TestEditorScreens::settle()
{
    for (int i = 0; i < 3; ++i) {
        QCoreApplication::sendPostedEvents();
        QCoreApplication::processEvents();
    }
}

/// smallest: what it must be readable at; null: the smallest that it can be.
void TestEditorScreens::check(QWidget &window, QSize smallest)
{
    const QRect screen = window.screen()->availableGeometry();
    const QSize first = window.size();
    QVERIFY2(first.width() <= screen.width() - kDesktopFrame.width() &&
                 first.height() <= screen.height() - kDesktopFrame.height(),
             qPrintable(QStringLiteral("opens at %1 x %2").arg(first.width()).arg(first.height())));
    QString clipped = clippedIn(window);
    QVERIFY2(clipped.isEmpty(), qPrintable("at first:\n" + clipped));
    const QSize least = window.minimumSizeHint().expandedTo(window.minimumSize());
    const QSize most = kSmallScreen - kDesktopFrame;
    QVERIFY2(least.width() <= most.width() && least.height() <= most.height(),
             qPrintable(QStringLiteral("needs %1 x %2").arg(least.width()).arg(least.height())));
    window.resize(smallest.isNull() ? least : smallest);
    settle();
    clipped = clippedIn(window);
    QVERIFY2(clipped.isEmpty(), qPrintable("at its smallest:\n" + clipped));
    const QString nameless = namelessIn(window);
    QVERIFY2(nameless.isEmpty(), qPrintable("without a name:\n" + nameless));
    const QString same = sameLettersIn(window);
    QVERIFY2(same.isEmpty(), qPrintable("on the same key:\n" + same));
}

void TestEditorScreens::mainWindow_isReadable()
{
    QFETCH(QString, language);
    start(language);
    MainWindow window;
    window.show();
    window.openPaths({pictures->path("IMG_0411.jpg")});
    const auto *documents = window.findChild<DocumentArea *>();
    QTRY_COMPARE_WITH_TIMEOUT(documents->documents().size(), 1, kPatienceMs);
    for (const char *front : {"adjustDock", "photoDock", "histogramDock"}) {
        auto *dock = window.findChild<QDockWidget *>(front);
        QVERIFY2(dock, front);
        dock->show();
        dock->raise();
        settle();
        check(window, kSmallScreen - kDesktopFrame);
        if (QTest::currentTestFailed())
            return;
    }
}

void TestEditorScreens::workspace_isReadable()
{
    QFETCH(QString, language);
    start(language);
    MergeWorkspace window({pictures->path("IMG_0411.jpg"), pictures->path("IMG_0412.jpg")},
                          pictures->folder());
    window.setBracketPlace(10, 120);
    window.show();
    const auto *preview = window.findChild<MergePreview *>();
    QTRY_VERIFY_WITH_TIMEOUT(!preview->shown().isNull(), kPatienceMs);
    settle();
    check(window);
}

void TestEditorScreens::batchWindow_isReadable()
{
    QFETCH(QString, language);
    start(language);
    BatchWindow window(pictures->folder());
    window.show();
    auto *table = window.findChild<BracketTable *>();
    QTRY_COMPARE_WITH_TIMEOUT(table->topLevelItemCount(), 3, kPatienceMs);
    table->topLevelItem(0)->setExpanded(true);
    // The longest that it says.
    auto *said = window.findChild<QLabel *>("batchState");
    said->setText(BatchWindow::tr("%1 merged, %2 done already, %3 failed, %4 stopped")
                      .arg(1000)
                      .arg(1000)
                      .arg(1000)
                      .arg(1000));
    window.findChild<QPushButton *>("startButton")->setText(BatchWindow::tr("Go O&n"));
    settle();
    check(window);
}

void TestEditorScreens::lightWindow_isReadable()
{
    QFETCH(QString, language);
    start(language);
    light_file::Light light;
    light.picture = QImage(kShotSize, QImage::Format_RGBX32FPx4);
    light.picture.fill(Qt::gray);
    light.name = "scene";
    light.path = "scene.exr";
    LightWindow window(light, pictures->folder());
    window.show();
    const auto *preview = window.findChild<MergePreview *>();
    QTRY_VERIFY_WITH_TIMEOUT(!preview->shown().isNull(), kPatienceMs);
    settle();
    check(window);
}

void TestEditorScreens::qualityDialog_isReadable()
{
    QFETCH(QString, language);
    start(language);
    JpegQualityDialog window(95, true);
    window.show();
    settle();
    check(window);
}

/// That the measure tells a text that is cut.
void TestEditorScreens::clippedText_isFound()
{
    QWidget window;
    window.resize(300, 200);
    auto *label = new QLabel(QStringLiteral("a rather long text"), &window);
    label->setGeometry(10, 10, 200, 30);
    auto *box = new QComboBox(&window);
    box->addItem(QStringLiteral("a rather long entry"));
    box->setGeometry(10, 50, 250, 40);
    window.show();
    QCOMPARE(clippedIn(window), QString());
    QVERIFY(namelessIn(window).contains("QComboBox"));
    label->resize(20, 30);
    QVERIFY(clippedIn(window).contains("rather"));
    label->setGeometry(200, 10, 200, 30);
    QVERIFY(clippedIn(window).contains("cut off"));
    label->hide();
    QCOMPARE(clippedIn(window), QString());
    box->resize(60, 40);
    QVERIFY(clippedIn(window).contains("QComboBox"));
}

int main(int argc, char **argv)
{
    workspace::nameEditor();
    QApplication application(argc, argv);
    TestEditorScreens test;
    return QTest::qExec(&test, argc, argv);
}

#include "tst_editor_screens.moc"
