// SPDX-License-Identifier: GPL-3.0-or-later
// bare_window [--paints N]: the minimum cost of a clock window with Qt, as the reference for the real
// program: the same size, window flags and two lines of text, and nothing else. It reads the time five times
// a second and paints the lower line once a second. With --paints it counts like a stopwatch and paints that
// line N times a second; with N = 0 it has no timer.

#include <QApplication>
#include <QDateTime>
#include <QElapsedTimer>
#include <QPaintEvent>
#include <QPainter>
#include <QTimer>
#include <QWidget>
#include <cstdio>
#include <memory>
#include <optional>

namespace tickwell {

using namespace Qt::StringLiterals;

namespace {

constexpr QSize kWindowSize(167, 40);
constexpr int kLineHeight = kWindowSize.height() / 2;
constexpr int kTextHeight = 14;  // pixels
constexpr int kTickMilliseconds = 200;
constexpr int kMostPaints = 1000;  // per second

/// Black background, one white line above one green line.
class BareWindow : public QWidget {
public:
    BareWindow() : QWidget(nullptr, Qt::Tool | Qt::FramelessWindowHint | Qt::WindowStaysOnTopHint) {
        setFixedSize(kWindowSize);
        setAttribute(Qt::WA_OpaquePaintEvent);
        QFont lineFont = font();
        lineFont.setPixelSize(kTextHeight);
        setFont(lineFont);
        SetLower(QDateTime::currentDateTime());
    }

    void SetLower(const QString& text) {
        m_lower = text;
        update(LowerLine());
    }
    void SetLower(const QDateTime& now) { SetLower(now.toString(u"H時mm分ss秒"_s)); }

protected:
    void paintEvent(QPaintEvent* event) override {
        QPainter painter(this);
        painter.fillRect(event->rect(), Qt::black);
        painter.setPen(Qt::white);
        painter.drawText(UpperLine(), Qt::AlignCenter, m_upper);
        painter.setPen(Qt::green);
        painter.drawText(LowerLine(), Qt::AlignCenter, m_lower);
    }

private:
    QRect UpperLine() const { return {0, 0, width(), kLineHeight}; }
    QRect LowerLine() const { return {0, kLineHeight, width(), height() - kLineHeight}; }

    QString m_upper = QDateTime::currentDateTime().toString(u"yyyy年M月d日"_s);
    QString m_lower;
};

/// Shows the time; repaints once a second.
class Seconds {
public:
    explicit Seconds(BareWindow& window) : m_window(window) {
        QObject::connect(&m_timer, &QTimer::timeout, [this] { Tick(); });
        m_timer.start(kTickMilliseconds);
    }

private:
    void Tick() {
        const QDateTime now = QDateTime::currentDateTime();
        if (now.toSecsSinceEpoch() != m_shown) {
            m_shown = now.toSecsSinceEpoch();
            m_window.SetLower(now);
        }
    }

    BareWindow& m_window;
    qint64 m_shown = 0;
    QTimer m_timer;
};

/// Counts up and shows the reading `paints` times a second.
class Count {
public:
    Count(BareWindow& window, int paints) : m_window(window), m_paints(paints) {
        m_timer.setTimerType(Qt::PreciseTimer);
        m_timer.setSingleShot(true);
        QObject::connect(&m_timer, &QTimer::timeout, [this] { Tick(); });
        m_since.start();
        Tick();
    }

private:
    void Tick() {
        const qint64 now = m_since.elapsed();
        m_window.SetLower(QTime::fromMSecsSinceStartOfDay(static_cast<int>(now)).toString(u"h:mm'ss\"zzz"_s));
        const qint64 next = now * m_paints / kMostPaints + 1;
        // Rounded up, so that it is never 0 ms from now.
        const qint64 due = (next * kMostPaints + m_paints - 1) / m_paints;
        m_timer.start(static_cast<int>(due - now));
    }

    BareWindow& m_window;
    int m_paints;
    QElapsedTimer m_since;
    QTimer m_timer;
};

/// The N of "--paints N"; -1 without arguments, nullopt if they are wrong.
std::optional<int> PaintsOf(const QStringList& arguments) {
    if (arguments.size() == 1) {
        return -1;
    }
    bool isNumber = false;
    const int paints = arguments.size() == 3 ? arguments[2].toInt(&isNumber) : -1;
    const bool fits = arguments[1] == u"--paints"_s && isNumber && paints >= 0 && paints <= kMostPaints;
    return fits ? std::optional(paints) : std::nullopt;
}

}  // namespace

}  // namespace tickwell

int main(int argc, char** argv) {
    // The same platform plugins as the real program.
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM")) {
        qputenv("QT_QPA_PLATFORM", "xcb;wayland");
    }
    const QApplication application(argc, argv);
    const std::optional<int> paints = tickwell::PaintsOf(QCoreApplication::arguments());
    if (!paints) {
        std::fputs("usage: bare_window [--paints 0..1000]\n", stderr);
        return 2;
    }
    tickwell::BareWindow window;
    std::unique_ptr<tickwell::Seconds> seconds;
    std::unique_ptr<tickwell::Count> count;
    if (*paints < 0) {
        seconds = std::make_unique<tickwell::Seconds>(window);
    } else if (*paints > 0) {
        count = std::make_unique<tickwell::Count>(window, *paints);
    }
    window.show();
    return QApplication::exec();
}
