#include "merge_texts.h"

#include <QtTest>

class TestMergeTexts : public QObject
{
    Q_OBJECT

private slots:
    void unaligned_namesTheShotAndTheReason();
    void problem_everyError_isSaidInWords();
};

void TestMergeTexts::unaligned_namesTheShotAndTheReason()
{
    registration::Transform transform;
    transform.kind = registration::Kind::Unaligned;
    transform.reason = registration::Reason::NoDetail;
    QCOMPARE(merge_texts::unaligned(QStringLiteral("/a/IMG_3.jpg"), transform),
             QStringLiteral("IMG_3.jpg was left unaligned: it shows too little detail."));
    transform.kind = registration::Kind::Rigid;
    transform.confidence = 0.934;
    QCOMPARE(merge_texts::unaligned(QStringLiteral("/a/IMG_3.jpg"), transform), QString());
    QCOMPARE(merge_texts::alignment(transform), QStringLiteral("aligned, 93 % sure"));
}

void TestMergeTexts::problem_everyError_isSaidInWords()
{
    using exposure::Error;
    for (const Error error : {Error::NoMemory, Error::NoPictures, Error::DifferentSizes,
                              Error::NothingCovered, Error::NoSuchShot, Error::OtherMaskSize})
        QVERIFY(!merge_texts::problem(error).isEmpty());
    for (const Error error : {Error::None, Error::Cancelled})
        QVERIFY(merge_texts::problem(error).isEmpty());
}

QTEST_GUILESS_MAIN(TestMergeTexts)
#include "tst_merge_texts.moc"
