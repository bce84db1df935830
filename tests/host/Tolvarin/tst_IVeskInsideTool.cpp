#include <IVeskInsideTool.h>

#include <QtTest>

#include <cstring>

namespace {

class InsideTool : public IVeskInsideTool
{
public:
    using IVeskInsideTool::IVeskInsideTool;

    using IVeskInsideTool::active;
    void active(VeskContext *, IVeskUIManager *) override { ++activations; }
    void disActive() override {}
    void init() override {}
    void release() override {}

    using IVeskInsideTool::context;

    int activations = 0;
};

using PlainActive = void (IVeskInsideTool::*)(VeskContext *);
using ActiveWithUi = void (IVeskInsideTool::*)(VeskContext *, IVeskUIManager *);

#if defined(__GXX_ABI_VERSION) && (defined(__x86_64__) || defined(__aarch64__))
#define HAS_KNOWN_MEMBER_POINTERS
/// Place of a virtual operation in the table, read from the pointer to it: the first word is the
/// offset in bytes (on x86-64 plus one).
template <typename Operation>
int slotOf(Operation operation)
{
    std::ptrdiff_t words[2] = {};
    static_assert(sizeof operation == sizeof words);
    std::memcpy(words, &operation, sizeof words);
    return static_cast<int>(words[0] / static_cast<std::ptrdiff_t>(sizeof(void *)));
}
#endif

} // namespace

class TestIVeskInsideTool : public QObject
{
    Q_OBJECT

private slots:
    void activeWithoutUiManager_doesNothing()
    {
        InsideTool tool;
        tool.active(nullptr);
        QCOMPARE(tool.activations, 0);
        QVERIFY(!tool.isActive());
    }

    void activeWithUiManager_reachesTheTool()
    {
        InsideTool tool;
        IVeskInsideTool &asInside = tool;
        asInside.active(nullptr, nullptr);
        QCOMPARE(tool.activations, 1);
    }

    void metaObject_isThatOfATool()
    {
        QCOMPARE(IVeskInsideTool::staticMetaObject.superClass(), &IVeskTool::staticMetaObject);
        QCOMPARE(IVeskTool::staticMetaObject.superClass(), &QObject::staticMetaObject);
    }

    void virtualOperations_standInTheirOrder()
    {
#ifdef HAS_KNOWN_MEMBER_POINTERS
        // Twelve slots of QObject come first: the meta-object's three, the destructor's two, and
        // event, eventFilter, timerEvent, childEvent, customEvent, connectNotify, disconnectNotify.
        int slot = 12;
        QCOMPARE(slotOf(&IVeskTool::event), 5);
        QCOMPARE(slotOf(static_cast<PlainActive>(&IVeskInsideTool::active)), slot++);
        QCOMPARE(slotOf(&IVeskTool::disActive), slot++);
        QCOMPARE(slotOf(&IVeskTool::init), slot++);
        QCOMPARE(slotOf(&IVeskTool::release), slot++);
        QCOMPARE(slotOf(&IVeskTool::getWidget), slot++);
        QCOMPARE(slotOf(&IVeskTool::toolUndo), slot++);
        QCOMPARE(slotOf(&IVeskTool::toolRedo), slot++);
        QCOMPARE(slotOf(&IVeskTool::afterUndo), slot++);
        QCOMPARE(slotOf(&IVeskTool::isActive), slot++);
        QCOMPARE(slotOf(&IVeskTool::eventRegistered), slot++);
        QCOMPARE(slotOf(&IVeskTool::processEvent), slot++);
        QCOMPARE(slotOf(static_cast<ActiveWithUi>(&IVeskInsideTool::active)), slot++);
#else
        QSKIP("The layout of member pointers is not known on this platform");
#endif
    }
};

QTEST_GUILESS_MAIN(TestIVeskInsideTool)
#include "tst_IVeskInsideTool.moc"
