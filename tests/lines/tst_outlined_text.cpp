// SPDX-License-Identifier: GPL-3.0-or-later
#include <QPainter>
#include <QTest>

#include "lines/line_look.h"
#include "lines/outlined_text.h"

using namespace tickwell;
using namespace tickwell::lines;
using namespace Qt::StringLiterals;

namespace {

constexpr QSize kSize(160, 20);
constexpr int kIndent = 4;

OutlinedLook Look(int width, qreal pixelRatio = 1) {
    return {.font = FontOf({u"ＭＳ Ｐゴシック"_s, 10}),
            .text = Qt::white,
            .outline = Qt::red,
            .width = width,
            .pixelRatio = pixelRatio};
}

QImage Fresh(const QString& text, const OutlinedLook& look) {
    return OutlinedText().Picture(text, kSize, kIndent, look);
}

/// The bounding rectangle of all pixels that are not transparent.
QRect Inked(const QImage& image) {
    QRect inked;
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x) {
            if (qAlpha(image.pixel(x, y)) > 0) {
                inked |= QRect(x, y, 1, 1);
            }
        }
    }
    return inked;
}

/// The area of the text without its outline.
QRect TextArea(const QString& text, qreal pixelRatio) {
    QImage image(kSize * pixelRatio, QImage::Format_ARGB32_Premultiplied);
    image.setDevicePixelRatio(pixelRatio);
    image.fill(Qt::transparent);
    QPainter painter(&image);
    painter.setFont(Look(1).font);
    painter.drawText(QRect(QPoint(kIndent, 0), kSize), Qt::AlignVCenter | Qt::AlignLeft | Qt::TextSingleLine,
                     text);
    return Inked(image);
}

}  // namespace

/// A text with an outline and without a background.
class TstOutlinedText : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { InstallFontSubstitutes(); }
    void TheOutlineIsAsWideAsItShould_data();
    void TheOutlineIsAsWideAsItShould();
    void TheTextIsOnTheOutline();
    void AChangedTextLooksLikeANewOne_data();
    void AChangedTextLooksLikeANewOne();
    void AChangedLookIsShown();
    void AnEmptyAreaHasAnEmptyPicture();
};

void TstOutlinedText::TheOutlineIsAsWideAsItShould_data() {
    QTest::addColumn<int>("width");
    QTest::addColumn<qreal>("pixelRatio");
    QTest::addColumn<int>("pixels");
    QTest::newRow("thin") << 1 << 1.0 << 1;
    QTest::newRow("thick") << 2 << 1.0 << 2;
    QTest::newRow("thin at 150 %") << 1 << 1.5 << 2;
    QTest::newRow("thick at 200 %") << 2 << 2.0 << 4;
}

void TstOutlinedText::TheOutlineIsAsWideAsItShould() {
    QFETCH(const int, width);
    QFETCH(const qreal, pixelRatio);
    QFETCH(const int, pixels);
    const QString text = u"12:34"_s;
    const QRect expected = TextArea(text, pixelRatio).adjusted(-pixels, -pixels, pixels, pixels);
    QCOMPARE(Inked(Fresh(text, Look(width, pixelRatio))), expected);
}

void TstOutlinedText::TheTextIsOnTheOutline() {
    const QImage picture = Fresh(u"■"_s, Look(2));
    const QRect inked = Inked(picture);
    QCOMPARE(picture.pixel(inked.center()), qRgb(255, 255, 255));
    QCOMPARE(picture.pixel(inked.left(), inked.center().y()) & 0x00FFFF, 0U);  // red or a fraction of it
    QCOMPARE(picture.pixel(picture.width() - 1, picture.height() - 1), 0U);
    for (int y = 0; y < picture.height(); ++y) {
        for (int x = 0; x < picture.width(); ++x) {
            const QRgb stored = reinterpret_cast<const QRgb*>(picture.constScanLine(y))[x];
            QVERIFY(qRed(stored) <= qAlpha(stored) && qGreen(stored) <= qAlpha(stored));  // premultiplied
        }
    }
}

void TstOutlinedText::AChangedTextLooksLikeANewOne_data() {
    QTest::addColumn<QStringList>("texts");
    QTest::newRow("seconds") << QStringList{u"午後 9時05分08秒"_s, u"午後 9時05分09秒"_s,
                                            u"午後 9時05分10秒"_s};
    QTest::newRow("shorter and longer") << QStringList{u"平成10年11月15日"_s, u""_s, u"1"_s, u"平成10年"_s};
    QTest::newRow("wider than the area") << QStringList{QString(60, u'あ'), QString(59, u'あ') + u'い'};
    QTest::newRow("the same") << QStringList{u"12"_s, u"12"_s};
}

void TstOutlinedText::AChangedTextLooksLikeANewOne() {
    QFETCH(const QStringList, texts);
    OutlinedText outlined;
    for (const QString& text : texts) {
        QCOMPARE(outlined.Picture(text, kSize, kIndent, Look(2)), Fresh(text, Look(2)));
    }
}

void TstOutlinedText::AChangedLookIsShown() {
    OutlinedText outlined;
    const QString text = u"12:34"_s;
    const QImage thin = outlined.Picture(text, kSize, kIndent, Look(1));
    OutlinedLook blue = Look(1);
    blue.outline = Qt::blue;
    QVERIFY(outlined.Picture(text, kSize, kIndent, blue) != thin);
    QCOMPARE(outlined.Picture(text, kSize, kIndent, Look(2)), Fresh(text, Look(2)));
    QCOMPARE(outlined.Picture(text, kSize * 2, kIndent, Look(2)).size(), kSize * 2);
}

void TstOutlinedText::AnEmptyAreaHasAnEmptyPicture() {
    QVERIFY(OutlinedText().Picture(u"12"_s, QSize(0, 20), kIndent, Look(1)).isNull());
}

QTEST_MAIN(TstOutlinedText)
#include "tst_outlined_text.moc"
