// What the page calls: a request as a line of text, answered by a line of text.

#include "Session.h"

#include <string>

#include <emscripten.h>

/// The reply stays valid until the next request.
extern "C" EMSCRIPTEN_KEEPALIVE const char* forme_reply(const char* request) {
    static Session session;
    static std::string reply;
    reply = session.replyTo(request);
    return reply.c_str();
}
