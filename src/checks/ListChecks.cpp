// Lists: making, numbering, breaking, joining and leaving them.

#include "checks/Check.h"
#include "checks/Keys.h"
#include "editing/lists/ListBuffer.h"

using namespace Keys;
using Buffer = EditableDocumentBuffer;

namespace {

template <ListType type>
void pressButton(Buffer& document) {
    document.getListBuffer().makeList(type);
}

void breakItem(Buffer& document) {
    document.getListBuffer().breakList();
}

constexpr auto numbers = pressButton<ListType::Numbering>;
constexpr auto bullets = pressButton<ListType::Bullets>;

constexpr Check listChecks[] = {
    {L"a block becomes a list",
     L"<B>a|</B>",
     {numbers},
     L"<B><L><E><N end-indent=\"label-end()\"><B>1)</B></N><P start-indent=\"body-start()\">"
     L"<B>a|</B></P></E></L></B>"},
    {L"the same button ends it", L"<B>a|</B>", {numbers, numbers}, L"<B><B>|a</B></B>"},
    {L"the other button changes the labels",
     L"<L><E><N><B>1)</B></N><P><B>a|</B></P></E></L>",
     {bullets},
     L"<L><E><N><B font-size=\"1.5em\" line-height=\"1em\">&#x2022;</B></N><P><B>a|</B></P></E>"
     L"</L>"},
    {L"Enter splits an item and numbers those behind it",
     L"<L><E><N><B>1)</B></N><P><B>a|b</B></P></E><E><N><B>2)</B></N><P><B>c</B></P></E></L>",
     {breakItem},
     L"<L><E><N><B>1)</B></N><P><B>a</B></P></E><E><N><B>2)</B></N><P><B>|b</B></P></E>"
     L"<E><N><B>3)</B></N><P><B>c</B></P></E></L>"},
    {L"Enter at the end makes an empty item",
     L"<L><E><N><B>9)</B></N><P><B>a|</B></P></E></L>",
     {breakItem, type<L'b'>},
     L"<L><E><N><B>9)</B></N><P><B>a</B></P></E><E><N><B>10)</B></N><P><B>b|</B></P></E></L>"},
    {L"Enter on an empty item cuts the list in two",
     L"<L><E><N><B>1)</B></N><P><B>a</B></P></E><E><N><B>2)</B></N><P><B>|_</B></P></E>"
     L"<E><N><B>3)</B></N><P><B>c</B></P></E></L>",
     {breakItem},
     L"<L><E><N><B>1)</B></N><P><B>a</B></P></E></L><B>|_</B>"
     L"<L><E><N><B>1)</B></N><P><B>c</B></P></E></L>"},
    {L"Enter on the only item ends the list",
     L"<L><E><N><B>1)</B></N><P><B>|_</B></P></E></L>",
     {breakItem},
     L"<B>|_</B>"},
    {L"Backspace joins items",
     L"<L><E><N><B>1)</B></N><P><B>a</B></P></E><E><N><B>2)</B></N><P><B>|b</B></P></E></L>",
     {backspace},
     L"<L><E><N><B>1)</B></N><P><B>a|b</B></P></E></L>"},
    {L"Backspace moves the first item out",
     L"<B><L><E><N><B>1)</B></N><P><B>|ab</B></P></E><E><N><B>2)</B></N><P><B>c</B></P></E></L></"
     L"B>",
     {backspace},
     L"<B><B>|ab</B><L><E><N><B>1)</B></N><P><B>c</B></P></E></L></B>"},
    {L"Delete joins the next item",
     L"<L><E><N><B>1)</B></N><P><B>a|</B></P></E><E><N><B>2)</B></N><P><B>b</B></P></E>"
     L"<E><N><B>3)</B></N><P><B>c</B></P></E></L>",
     {forwardDelete},
     L"<L><E><N><B>1)</B></N><P><B>a|b</B></P></E><E><N><B>2)</B></N><P><B>c</B></P></E></L>"},
    {L"Delete behind the last item takes in the block",
     L"<L><E><N><B>1)</B></N><P><B>a|</B></P></E></L><B>b</B>",
     {forwardDelete},
     L"<L><E><N><B>1)</B></N><P><B>a|b</B></P></E></L>"},
    {L"a selected item goes whole",
     L"<L><E><N><B>1)</B></N><P><B>aa^a</B></P></E><E><N><B>2)</B></N><P><B>b</B></P></E>"
     L"<E><N><B>3)</B></N><P><B>cc|c</B></P></E></L>",
     {forwardDelete},
     L"<L><E><N><B>1)</B></N><P><B>aa|</B></P></E><E><N><B>2)</B></N><P><B>c</B></P></E></L>"},
    {L"nothing is typed into a label",
     L"<L><E><N><B>1|)</B></N><P><B>a</B></P></E></L>",
     {type<L'x'>},
     L"<L><E><N><B>1|)</B></N><P><B>a</B></P></E></L>"},
};

} // namespace

std::span<const Check> Checks::ofLists() {
    return listChecks;
}
