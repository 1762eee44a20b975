// SPDX-License-Identifier: GPL-3.0-or-later
#include "media/transport_icons.h"

#include <QGuiApplication>
#include <QIconEngine>
#include <QPainter>
#include <QPainterPath>
#include <QPalette>
#include <array>

namespace tickwell::media {

namespace {

enum class Shape { Bar, Square, Left, Right };

/// Part of a symbol: its shape and its horizontal extent in a symbol of 16 by 16 units.
struct Piece {
    Shape shape;
    int from;
    int to;
};

// By the index of the button. A piece without width draws nothing.
constexpr std::array<std::array<Piece, 2>, 7> kSigns{{
    {{{Shape::Bar, 2, 4}, {Shape::Left, 4, 14}}},
    {{{Shape::Left, 0, 8}, {Shape::Left, 8, 16}}},
    {{{Shape::Right, 3, 14}, {}}},
    {{{Shape::Bar, 3, 7}, {Shape::Bar, 9, 13}}},
    {{{Shape::Square, 3, 13}, {}}},
    {{{Shape::Right, 0, 8}, {Shape::Right, 8, 16}}},
    {{{Shape::Right, 2, 12}, {Shape::Bar, 12, 14}}},
}};
constexpr int kSide = 16;
constexpr int kTop = 3;
constexpr int kBottom = 13;
constexpr int kMiddle = 8;

QPainterPath PathOf(const Piece& piece) {
    QPainterPath path;
    if (piece.shape == Shape::Bar || piece.shape == Shape::Square) {
        path.addRect(piece.from, kTop, piece.to - piece.from, kBottom - kTop);
        return path;
    }
    const bool isLeft = piece.shape == Shape::Left;
    path.moveTo(isLeft ? piece.from : piece.to, kMiddle);
    path.lineTo(isLeft ? piece.to : piece.from, kTop);
    path.lineTo(isLeft ? piece.to : piece.from, kBottom);
    path.closeSubpath();
    return path;
}

class TransportEngine : public QIconEngine {
public:
    explicit TransportEngine(int index) : m_index(index) {}

    void paint(QPainter* painter, const QRect& rect, QIcon::Mode mode, QIcon::State /*state*/) override {
        const auto group = mode == QIcon::Disabled ? QPalette::Disabled : QPalette::Active;
        painter->save();
        painter->setRenderHint(QPainter::Antialiasing);
        painter->translate(rect.topLeft());
        painter->scale(double(rect.width()) / kSide, double(rect.height()) / kSide);
        for (const Piece& piece : kSigns[static_cast<std::size_t>(m_index)]) {
            painter->fillPath(PathOf(piece), QGuiApplication::palette().color(group, QPalette::ButtonText));
        }
        painter->restore();
    }

    QPixmap pixmap(const QSize& size, QIcon::Mode mode, QIcon::State state) override {
        QPixmap pixmap(size);
        pixmap.fill(Qt::transparent);
        QPainter painter(&pixmap);
        paint(&painter, {QPoint(0, 0), size}, mode, state);
        return pixmap;
    }

    QIconEngine* clone() const override { return new TransportEngine(*this); }

private:
    int m_index;
};

}  // namespace

QIcon TransportIcon(int index) {
    return QIcon(new TransportEngine(index));  // the icon owns it
}

}  // namespace tickwell::media
