#include "document/MarkupChange.h"

#include "foundation/DomParser.h"
#include "foundation/Encoder.h"
#include "foundation/Exception.h"

#include <algorithm>
#include <vector>

using Core::String;
using XmlScan::Text;

namespace {

/// The elements of the surroundings that a part of a text closes and opens.
struct Balance {
    std::vector<Text> closed; // the innermost first
    std::vector<Text> opened; // the outermost first
    bool matched = true;      // no closing tag meets another element's start tag
};

/// Whether two parts leave the same elements open behind them. To close an element and to open one
/// of the same name again comes to nothing: that is how a block is split and joined.
bool sameEffect(Balance a, Balance b) {
    for (Balance* balance : {&a, &b}) {
        while (!balance->closed.empty() && !balance->opened.empty() &&
               balance->closed.back() == balance->opened.front()) {
            balance->closed.pop_back();
            balance->opened.erase(balance->opened.begin());
        }
    }
    return a.matched && b.matched && a.closed == b.closed && a.opened == b.opened;
}

Balance balanceOf(Text part) {
    Balance balance;
    for (int tag = XmlScan::nextTag(part, 0); tag >= 0;
         tag = XmlScan::nextTag(part, XmlScan::stepForward(part, tag))) {
        if (XmlScan::openingAt(part, tag)) {
            balance.opened.push_back(XmlScan::tagName(part, tag));
        } else if (XmlScan::closingAt(part, tag)) {
            const Text name = XmlScan::tagName(part, tag).substr(1);
            if (balance.opened.empty()) {
                balance.closed.push_back(name);
                continue;
            }
            balance.matched = balance.matched && balance.opened.back() == name;
            balance.opened.pop_back();
        }
    }
    return balance;
}

/// The part with the tags put around it that it lacks, as a document that declares the same
/// entities.
String asDocument(Text prolog, Text part, const Balance& balance) {
    std::wstring front;
    std::wstring back;
    for (const Text name : balance.closed)
        front.insert(0, L"<" + std::wstring(name) + L">");
    for (const Text name : balance.opened)
        back.insert(0, L"</" + std::wstring(name) + L">");
    return String(std::wstring(prolog) + L"<part>" + front + std::wstring(part) + back +
                  L"</part>");
}

bool parses(const String& document) {
    const Core::ByteArray bytes = Core::Encoder::convertStringToUTF8(document);
    try {
        Xml::DomParser().parseMemory(bytes.ptr(), bytes.size());
        return true;
    } catch (const Core::Exception&) {
        return false;
    }
}

/// The offset behind the unit at a valid position; the end of the text where the unit is not
/// complete.
int behindUnit(Text text, int position) {
    const int size = static_cast<int>(text.size());
    const auto behind = [&](int found, std::size_t length) {
        return found < 0 ? size : found + static_cast<int>(length);
    };
    if (XmlScan::commentAt(text, position))
        return behind(XmlScan::find(text, XmlScan::commentEnd, position),
                      XmlScan::commentEnd.size());
    if (XmlScan::cdataAt(text, position))
        return behind(XmlScan::find(text, XmlScan::cdataEnd, position), XmlScan::cdataEnd.size());
    if (XmlScan::onTagStart(text, position))
        return behind(XmlScan::tagEnd(text, position), 1);
    return position + 1;
}

/// The document type declaration and what stands before it; empty without one.
Text documentType(Text text) {
    const int declaration = XmlScan::find(text, L"<!DOCTYPE", 0);
    const int content = XmlScan::firstPositionInRoot(text);
    const int root = XmlScan::previousTag(text, content - 1);
    return declaration < 0 || declaration > root ? Text() : XmlScan::slice(text, 0, root);
}

} // namespace

MarkupChange::MarkupChange(const String& before, const String& after)
    : before_(before.view()), after_(after.view()) {
    const auto firstDifference =
        std::mismatch(before_.begin(), before_.end(), after_.begin(), after_.end());
    start_ = static_cast<int>(firstDifference.first - before_.begin());
    const auto rest = static_cast<std::ptrdiff_t>(start_);
    const auto lastDifference = std::mismatch(before_.rbegin(), before_.rend() - rest,
                                              after_.rbegin(), after_.rend() - rest);
    behind_ = static_cast<int>(lastDifference.first - before_.rbegin());
    widenToWholeMarkup();
}

/// A tag that is cut by an end of the difference belongs to it whole, in both texts.
void MarkupChange::widenToWholeMarkup() {
    for (const Text text : {before_, after_})
        if (XmlScan::isValid(text, start_))
            start_ = std::min(start_, XmlScan::unitStart(text, start_));
    for (int known = -1; known != behind_;) {
        known = behind_;
        for (const Text text : {before_, after_}) {
            const int size = static_cast<int>(text.size());
            int end = start_;
            while (end < size - behind_)
                end = behindUnit(text, end);
            behind_ = size - end;
        }
    }
}

bool MarkupChange::keepsWellFormed() const {
    const auto changedPart = [this](Text text) {
        return XmlScan::slice(text, start_, static_cast<int>(text.size()) - behind_);
    };
    const Text old = changedPart(before_);
    const Text part = changedPart(after_);
    const Balance oldBalance = balanceOf(old);
    const Balance balance = balanceOf(part);
    const Text prolog = documentType(after_);
    if (sameEffect(balance, oldBalance) && parses(asDocument(prolog, part, balance)))
        return true;
    return !parses(asDocument(prolog, old, oldBalance));
}
