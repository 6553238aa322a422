// Lists, their items and labels.

#include "calls/Calls.h"
#include "calls/Rows.h"

#include <forme/editing/lists/ListBuffer.h>

#include <tuple>

using Core::String;
using L = ListBuffer;

namespace {

std::tuple<int, int, int> eraseListRange(L& lists, int start, int end) {
    const int done = lists.eraseListSelection(start, end);
    return {done, start, end};
}

std::tuple<String, int> getNextLabel(L& lists, const String& label) {
    std::tuple<String, int> next;
    lists.getNextLabel(label, std::get<0>(next), std::get<1>(next));
    return next;
}

} // namespace

std::vector<Operation> Calls::lists() {
    const Rows lists([](Session& session) { return session.document().getListBuffer(); });
    return {
        lists("makeList", &L::makeList, {"type"}),
        lists("createList", &L::createList, {"type"}),
        lists("removeList", &L::removeList),
        lists("changeLabelType", &L::changeLabelType, {"type"}),
        lists("breakList", &L::breakList),
        lists("eraseTextFromListBuffer", &L::eraseTextFromListBuffer, {"forward", "wholeWord"}),
        lists.made("eraseListSelection", &eraseListRange, {"start", "end"}),
        lists("eraseListSelection", overload<int()>(&L::eraseListSelection)),
        lists("recalculateNumbering", &L::recalculateNumbering, {"position"}),
        lists("selectListLabel", &L::selectListLabel),
        lists("getListType", &L::getListType),
        lists("getCurrentListSize", &L::getCurrentListSize),
        lists("getCurrentItemNumber", &L::getCurrentItemNumber),
        lists("getListPos", &L::getListPos, {"position"}),
        lists("getItemPos", &L::getItemPos, {"position"}),
        lists("getNextItemPos", &L::getNextItemPos, {"item"}),
        lists("getPreviousItemPos", &L::getPreviousItemPos, {"item"}),
        lists("getItemLabelPos", &L::getItemLabelPos, {"item"}),
        lists("getItemBodyPos", &L::getItemBodyPos, {"item"}),
        lists("getFirstBlockInElement", &L::getFirstBlockInElement, {"element"}),
        lists("getLastBlockInElement", &L::getLastBlockInElement, {"element"}),
        lists("getListItemNumber", &L::getListItemNumber, {"item"}),
        lists("isFirstPositionInItemBody", &L::isFirstPositionInItemBody, {"position"}),
        lists("getItemLabelValue", &L::getItemLabelValue, {"item"}),
        lists("setItemLabelValue", &L::setItemLabelValue, {"item", "value"}),
        lists("getFirstListLabel", &L::getFirstListLabel, {"type"}),
        lists.made("getNextLabel", &getNextLabel, {"label"}),
        lists("createNewItem", &L::createNewItem, {"label", "position"}),
        lists("createNewItemBody", &L::createNewItemBody, {"position"}),
    };
}
