#include "clipped_texts.h"

#include "ui_VeskToolHDRWidget.h"

#include <QTranslator>
#include <QtTest>

#include <algorithm>

namespace {

const QString kDescription =
    QStringLiteral("Choose two or more pictures from a set of exposures to\n"
                   "merge and create a High Dynamic Range image.");

struct Form
{
    Form() { ui.setupUi(&panel); }

    QWidget panel;
    Ui_VeskToolHDRWidgetClass ui;
};

/// Settles the layouts without a window manager's help.
void showAt(QWidget &panel, const QSize &size)
{
    panel.resize(size);
    panel.show();
    QVERIFY(QTest::qWaitForWindowExposed(&panel));
    QCoreApplication::sendPostedEvents();
}

/// The form fixes the panel's own minimum. Where fonts are large its texts ask for more, which the
/// frame around the panel grants.
QSize smallestUsefulSize(const QWidget &panel)
{
    const int width = std::max(panel.minimumWidth(), panel.sizeHint().width());
    const int height = panel.layout()->minimumHeightForWidth(width);
    return {width, std::max(panel.minimumHeight(), height)};
}

} // namespace

/// The form of the panel, object for object: the panel's slots are bound to the names of the
/// objects, and editors find the controls by them.
class TestPanelForm : public QObject
{
    Q_OBJECT

private slots:
    void members_areCreatedInTheirOrder();
    void member_hasNameTypeAndParent_data();
    void member_hasNameTypeAndParent();
    void gridItem_hasRowColumnAndSpan_data();
    void gridItem_hasRowColumnAndSpan();
    void gridItems_haveNoAlignment();
    void layout_hasSpacing6AndMargins11_data();
    void layout_hasSpacing6AndMargins11();
    void boxLayouts_holdTheirItemsInOrder();
    void spacers_pushTheButtonsToTheTop();
    void buttons_areAtLeast80Wide();
    void deviceButton_takesTheRestOfTheRow();
    void checkBoxes_startChecked();
    void allControls_startEnabled();
    void noWidget_hasTipShortcutIconOrStyleSheet();
    void text_withoutTranslation_isTheSourceText_data();
    void text_withoutTranslation_isTheSourceText();
    void objectName_keptWhenSet_elseNamedAfterTheForm();
    void panel_opensAt527x359_andIsNeverSmallerThan500x350();
    void description_wrapsAndIsNeverWiderThan600();
    void panel_inEveryLanguage_clipsNoText_data();
    void panel_inEveryLanguage_clipsNoText();
};

void TestPanelForm::members_areCreatedInTheirOrder()
{
    Form form;
    QStringList widgets;
    for (const QWidget *widget :
         form.ui.groupBox->findChildren<QWidget *>(QString(), Qt::FindDirectChildrenOnly)) {
        widgets += widget->objectName();
    }
    QCOMPARE(widgets, QStringList({"label", "fileList", "browseBtn", "removeBtn"}));

    widgets.clear();
    for (const QWidget *widget :
         form.panel.findChildren<QWidget *>(QString(), Qt::FindDirectChildrenOnly)) {
        widgets += widget->objectName();
    }
    QCOMPARE(widgets, QStringList({"groupBox", "okBtn", "cancelBtn", "groupBox_2"}));

    widgets.clear();
    for (const QWidget *widget :
         form.ui.groupBox_2->findChildren<QWidget *>(QString(), Qt::FindDirectChildrenOnly)) {
        widgets += widget->objectName();
    }
    QCOMPARE(widgets, QStringList({"cudaCheck", "deviceButton", "alignCheck"}));
}

void TestPanelForm::member_hasNameTypeAndParent_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<QString>("type");
    QTest::addColumn<QString>("parent");

    const QStringList rows[] = {
        {"gridLayout_3", "QGridLayout", "VeskToolHDRWidgetClass"},
        {"groupBox", "QGroupBox", "VeskToolHDRWidgetClass"},
        {"gridLayout_2", "QGridLayout", "groupBox"},
        {"label", "QLabel", "groupBox"},
        {"fileList", "QListWidget", "groupBox"},
        {"verticalLayout", "QVBoxLayout", "gridLayout_2"},
        {"browseBtn", "QPushButton", "groupBox"},
        {"removeBtn", "QPushButton", "groupBox"},
        {"verticalLayout_2", "QVBoxLayout", "gridLayout_3"},
        {"okBtn", "QPushButton", "VeskToolHDRWidgetClass"},
        {"cancelBtn", "QPushButton", "VeskToolHDRWidgetClass"},
        {"groupBox_2", "QGroupBox", "VeskToolHDRWidgetClass"},
        {"gridLayout", "QGridLayout", "groupBox_2"},
        {"horizontalLayout", "QHBoxLayout", "gridLayout"},
        {"cudaCheck", "QCheckBox", "groupBox_2"},
        {"deviceButton", "QPushButton", "groupBox_2"},
        {"alignCheck", "QCheckBox", "groupBox_2"},
    };
    for (const QStringList &row : rows) {
        QTest::newRow(qPrintable(row[0])) << row[0] << row[1] << row[2];
    }
}

void TestPanelForm::member_hasNameTypeAndParent()
{
    QFETCH(QString, name);
    QFETCH(QString, type);
    QFETCH(QString, parent);
    Form form;

    const QList<QObject *> found = form.panel.findChildren<QObject *>(name);
    QCOMPARE(found.size(), 1);
    QCOMPARE(QString::fromLatin1(found.first()->metaObject()->className()), type);
    QCOMPARE(found.first()->parent()->objectName(), parent);
}

void TestPanelForm::gridItem_hasRowColumnAndSpan_data()
{
    QTest::addColumn<QString>("grid");
    QTest::addColumn<QString>("item");
    QTest::addColumn<QRect>("cells"); // column, row, columns, rows

    QTest::newRow("groupBox") << "gridLayout_3"
                              << "groupBox" << QRect(0, 0, 1, 1);
    QTest::newRow("OK and Cancel") << "gridLayout_3"
                                   << "verticalLayout_2" << QRect(1, 0, 1, 2);
    QTest::newRow("groupBox_2") << "gridLayout_3"
                                << "groupBox_2" << QRect(0, 1, 1, 1);
    QTest::newRow("label") << "gridLayout_2"
                           << "label" << QRect(0, 0, 2, 1);
    QTest::newRow("fileList") << "gridLayout_2"
                              << "fileList" << QRect(0, 1, 1, 1);
    QTest::newRow("Browse and Remove") << "gridLayout_2"
                                       << "verticalLayout" << QRect(1, 1, 1, 1);
    QTest::newRow("OpenCL row") << "gridLayout"
                                << "horizontalLayout" << QRect(0, 0, 1, 1);
    QTest::newRow("alignCheck") << "gridLayout"
                                << "alignCheck" << QRect(0, 1, 1, 1);
}

void TestPanelForm::gridItem_hasRowColumnAndSpan()
{
    QFETCH(QString, grid);
    QFETCH(QString, item);
    QFETCH(QRect, cells);
    Form form;

    const auto *layout = form.panel.findChild<QGridLayout *>(grid);
    int found = 0;
    for (int i = 0; i < layout->count(); ++i) {
        const QObject *object = layout->itemAt(i)->widget();
        if (!object) {
            object = layout->itemAt(i)->layout();
        }
        if (object->objectName() != item) {
            continue;
        }
        int row = -1, column = -1, rows = -1, columns = -1;
        layout->getItemPosition(i, &row, &column, &rows, &columns);
        QCOMPARE(QRect(column, row, columns, rows), cells);
        ++found;
    }
    QCOMPARE(found, 1);
}

void TestPanelForm::gridItems_haveNoAlignment()
{
    Form form;
    for (const QLayout *layout : form.panel.findChildren<QLayout *>()) {
        for (int i = 0; i < layout->count(); ++i) {
            QCOMPARE(layout->itemAt(i)->alignment(), Qt::Alignment());
        }
    }
}

void TestPanelForm::layout_hasSpacing6AndMargins11_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<int>("margin");
    for (const char *name : {"gridLayout_3", "gridLayout_2", "gridLayout"}) {
        QTest::newRow(name) << name << 11;
    }
    for (const char *name : {"verticalLayout", "verticalLayout_2", "horizontalLayout"}) {
        QTest::newRow(name) << name << 0;
    }
}

void TestPanelForm::layout_hasSpacing6AndMargins11()
{
    QFETCH(QString, name);
    QFETCH(int, margin);
    Form form;
    const auto *layout = form.panel.findChild<QLayout *>(name);
    QCOMPARE(layout->spacing(), 6);
    QCOMPARE(layout->contentsMargins(), QMargins(margin, margin, margin, margin));
}

void TestPanelForm::boxLayouts_holdTheirItemsInOrder()
{
    Form form;
    const auto &ui = form.ui;
    QCOMPARE(ui.verticalLayout->count(), 3);
    QCOMPARE(ui.verticalLayout->itemAt(0)->widget(), ui.browseBtn);
    QCOMPARE(ui.verticalLayout->itemAt(1)->widget(), ui.removeBtn);
    QCOMPARE(ui.verticalLayout->itemAt(2)->spacerItem(), ui.verticalSpacer);
    QCOMPARE(ui.verticalLayout_2->count(), 3);
    QCOMPARE(ui.verticalLayout_2->itemAt(0)->widget(), ui.okBtn);
    QCOMPARE(ui.verticalLayout_2->itemAt(1)->widget(), ui.cancelBtn);
    QCOMPARE(ui.verticalLayout_2->itemAt(2)->spacerItem(), ui.verticalSpacer_2);
    QCOMPARE(ui.horizontalLayout->count(), 2);
    QCOMPARE(ui.horizontalLayout->itemAt(0)->widget(), ui.cudaCheck);
    QCOMPARE(ui.horizontalLayout->itemAt(1)->widget(), ui.deviceButton);
}

void TestPanelForm::spacers_pushTheButtonsToTheTop()
{
    Form form;
    for (const QSpacerItem *spacer : {form.ui.verticalSpacer, form.ui.verticalSpacer_2}) {
        QCOMPARE(spacer->sizeHint(), QSize(20, 40));
        QCOMPARE(spacer->sizePolicy().horizontalPolicy(), QSizePolicy::Minimum);
        QCOMPARE(spacer->sizePolicy().verticalPolicy(), QSizePolicy::Expanding);
    }
}

void TestPanelForm::buttons_areAtLeast80Wide()
{
    Form form;
    for (const QPushButton *button :
         {form.ui.browseBtn, form.ui.removeBtn, form.ui.okBtn, form.ui.cancelBtn}) {
        QCOMPARE(button->minimumSize(), QSize(80, 0));
    }
}

void TestPanelForm::deviceButton_takesTheRestOfTheRow()
{
    Form form;
    const QSizePolicy policy = form.ui.deviceButton->sizePolicy();
    QCOMPARE(form.ui.deviceButton->minimumSize(), QSize(280, 0));
    QCOMPARE(policy.horizontalPolicy(), QSizePolicy::Expanding);
    QCOMPARE(policy.verticalPolicy(), QSizePolicy::Fixed);
    QCOMPARE(policy.horizontalStretch(), 0);
    QCOMPARE(policy.verticalStretch(), 0);
    QCOMPARE(policy.hasHeightForWidth(), QPushButton().sizePolicy().hasHeightForWidth());
}

void TestPanelForm::checkBoxes_startChecked()
{
    Form form;
    QVERIFY(form.ui.cudaCheck->isChecked());
    QVERIFY(form.ui.alignCheck->isCheckable());
    QVERIFY(form.ui.alignCheck->isChecked());
}

void TestPanelForm::allControls_startEnabled()
{
    Form form;
    for (const QWidget *widget : form.panel.findChildren<QWidget *>()) {
        QVERIFY2(widget->isEnabled(), qPrintable(widget->objectName()));
    }
}

void TestPanelForm::noWidget_hasTipShortcutIconOrStyleSheet()
{
    Form form;
    for (const QWidget *widget : form.panel.findChildren<QWidget *>()) {
        QVERIFY(widget->toolTip().isEmpty());
        QVERIFY(widget->statusTip().isEmpty());
        QVERIFY(widget->styleSheet().isEmpty());
        if (const auto *button = qobject_cast<const QAbstractButton *>(widget)) {
            QVERIFY(button->shortcut().isEmpty());
            QVERIFY(button->icon().isNull());
        }
    }
}

void TestPanelForm::text_withoutTranslation_isTheSourceText_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<QByteArray>("property");
    QTest::addColumn<QString>("text");

    QTest::newRow("panel") << "VeskToolHDRWidgetClass" << QByteArray("windowTitle")
                           << "Merge to HDR";
    QTest::newRow("groupBox") << "groupBox" << QByteArray("title") << "Source Pictures";
    QTest::newRow("label") << "label" << QByteArray("text") << kDescription;
    QTest::newRow("browseBtn") << "browseBtn" << QByteArray("text") << "Browse...";
    QTest::newRow("removeBtn") << "removeBtn" << QByteArray("text") << "Remove";
    QTest::newRow("okBtn") << "okBtn" << QByteArray("text") << "OK";
    QTest::newRow("cancelBtn") << "cancelBtn" << QByteArray("text") << "Cancel";
    QTest::newRow("groupBox_2") << "groupBox_2" << QByteArray("title") << "Options";
    QTest::newRow("cudaCheck") << "cudaCheck" << QByteArray("text") << "Use OpenCL with";
    QTest::newRow("deviceButton") << "deviceButton" << QByteArray("text") << "Changed device";
    QTest::newRow("alignCheck") << "alignCheck" << QByteArray("text")
                                << "Attempt to automatically align source images";
}

void TestPanelForm::text_withoutTranslation_isTheSourceText()
{
    QFETCH(QString, name);
    QFETCH(QByteArray, property);
    QFETCH(QString, text);
    Form form;
    const QObject *object =
        form.panel.objectName() == name ? &form.panel : form.panel.findChild<QObject *>(name);
    QCOMPARE(object->property(property).toString(), text);
}

void TestPanelForm::objectName_keptWhenSet_elseNamedAfterTheForm()
{
    Form unnamed;
    QCOMPARE(unnamed.panel.objectName(), QStringLiteral("VeskToolHDRWidgetClass"));

    QWidget named;
    named.setObjectName(QStringLiteral("myPanel"));
    Ui_VeskToolHDRWidgetClass ui;
    ui.setupUi(&named);
    QCOMPARE(named.objectName(), QStringLiteral("myPanel"));
}

void TestPanelForm::panel_opensAt527x359_andIsNeverSmallerThan500x350()
{
    Form form;
    QCOMPARE(form.panel.size(), QSize(527, 359));
    QCOMPARE(form.panel.minimumSize(), QSize(500, 350));
    form.panel.show();
    QCOMPARE(form.panel.size(), QSize(527, 359));
    form.panel.resize(10, 10);
    QCOMPARE(form.panel.size(), QSize(500, 350));
}

void TestPanelForm::description_wrapsAndIsNeverWiderThan600()
{
    Form form;
    QVERIFY(form.ui.label->wordWrap());
    QCOMPARE(form.ui.label->maximumSize(), QSize(600, QWIDGETSIZE_MAX));

    showAt(form.panel, QSize(1200, 500));
    QCOMPARE(form.ui.label->width(), 600);
    const int heightWhenWide = form.ui.label->height();

    showAt(form.panel, form.panel.minimumSize());
    QVERIFY(form.ui.groupBox->rect().contains(form.ui.label->geometry()));
    QVERIFY(form.ui.label->heightForWidth(form.ui.label->width()) >=
            2 * form.ui.label->fontMetrics().height());
    QVERIFY(form.ui.label->heightForWidth(150) > heightWhenWide);
}

void TestPanelForm::panel_inEveryLanguage_clipsNoText_data()
{
    QTest::addColumn<QString>("language");
    for (const char *language :
         {"", "zh_TW", "fr_FR", "ko_KR", "ja_JP", "es_ES", "zh_CN", "de_DE"}) {
        QTest::newRow(*language ? language : "English") << language;
    }
}

void TestPanelForm::panel_inEveryLanguage_clipsNoText()
{
    QFETCH(QString, language);
    QTranslator translator;
    if (!language.isEmpty()) {
        QVERIFY(translator.load(QStringLiteral(":/veskhdr_%1.qm").arg(language)));
        QVERIFY(QCoreApplication::installTranslator(&translator));
    }

    Form form;
    showAt(form.panel, smallestUsefulSize(form.panel));
    const QStringList clipped = clippedTexts(form.panel);
    QVERIFY2(clipped.isEmpty(), qPrintable(clipped.join('\n')));
    if (!language.isEmpty()) {
        QVERIFY(form.ui.label->text() != kDescription);
    }
}

QTEST_MAIN(TestPanelForm)
#include "tst_panel_form.moc"
