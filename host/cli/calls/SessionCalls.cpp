// What this program itself does for a host.

#include "calls/Calls.h"
#include "calls/Rows.h"

std::vector<Operation> Calls::session() {
    const Rows program([](Session& session) -> Session& { return session; });
    return {
        program("open", &Session::open, {"path"}),
        program("save", &Session::save, {"path", "encoding"}),
    };
}
