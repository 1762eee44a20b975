// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/desktop/click_through.h"

#include <xcb/xcb.h>
#include <xcb/xcbext.h>

#include <QWindow>
#include <array>

#include "platform/desktop/x11_requests.h"

namespace tickwell::platform {

namespace {

// Two requests of the SHAPE extension, encoded here to avoid a dependency on libxcb-shape.
constexpr quint8 kRectangles = 1;
constexpr quint8 kMask = 2;
constexpr quint8 kSet = 0;
constexpr quint8 kInput = 2;

xcb_extension_t shapeExtension{"SHAPE", 0};  // xcb identifies it by its address

struct RectanglesRequest {
    quint8 major = 0;  // this and the next two fields are set by xcb
    quint8 minor = 0;
    quint16 length = 0;
    quint8 operation = kSet;
    quint8 kind = kInput;
    quint8 ordering = 0;
    quint8 unused = 0;
    quint32 window = 0;
    qint16 x = 0;
    qint16 y = 0;  // followed by no rectangles: the input area is empty
};

struct MaskRequest {
    quint8 major = 0;
    quint8 minor = 0;
    quint16 length = 0;
    quint8 operation = kSet;
    quint8 kind = kInput;
    quint16 unused = 0;
    quint32 window = 0;
    qint16 x = 0;
    qint16 y = 0;
    quint32 mask = XCB_NONE;  // the input area is the whole window, even after it is resized
};

static_assert(sizeof(RectanglesRequest) == 16 && sizeof(MaskRequest) == 20);

template <typename Request>
void Send(xcb_connection_t* server, quint8 opcode, Request request) {
    const xcb_protocol_request_t description{
        .count = 1, .ext = &shapeExtension, .opcode = opcode, .isvoid = 1};
    std::array<iovec, 3> parts{};  // xcb uses the two elements before the one passed
    parts[2] = {.iov_base = &request, .iov_len = sizeof(request)};
    xcb_send_request(server, 0, &parts[2], &description);
}

}  // namespace

/// Qt::WindowTransparentForInput would work on X11 too, but clearing it fixes the input area at the window's
/// current size, even if the window is widened later.
void PassClicks(QWindow& window, bool passes) {
    xcb_connection_t* server = X11Connection();
    if (server == nullptr) {
        window.setFlag(Qt::WindowTransparentForInput, passes);
        return;
    }
    const xcb_query_extension_reply_t* shape = xcb_get_extension_data(server, &shapeExtension);
    if (shape == nullptr || shape->present == 0) {
        return;
    }
    const auto id = static_cast<quint32>(window.winId());
    // Also when it is restored: the server notifies the window manager only of a change.
    Send(server, kRectangles, RectanglesRequest{.window = id});
    if (!passes) {
        Send(server, kMask, MaskRequest{.window = id});
    }
    xcb_flush(server);
}

}  // namespace tickwell::platform
