#include "text/store/TextTree.h"

#include "text/store/StoreWork.h"

#include <algorithm>
#include <iterator>
#include <utility>

using Part = TextTree::Part;

/// A chunk, or parts one level lower.
struct TextTree::Node {
    explicit Node(TextChunk ofText) : chunk(std::move(ofText)) {}
    Node(int level, std::vector<Part> ofParts) : height(level), parts(std::move(ofParts)) {}

    bool isLeaf() const { return height == 0; }

    int height = 0;
    std::vector<Part> parts;
    TextChunk chunk;
};

namespace {

constexpr std::size_t mostParts = 16;
constexpr std::size_t leastParts = 4;

using Node = TextTree::Node;
using Parts = std::vector<Part>;

// Making

Part leafOf(TextChunk chunk) {
    const Measure measure = chunk.measure();
    return {measure, std::make_shared<Node>(std::move(chunk))};
}

/// A part with a level above the given ones, of which there is at least one.
Part nodeOf(Parts parts) {
    Measure measure;
    for (const Part& part : parts)
        measure += part.measure;
    const int height = parts.front().node->height + 1;
    return {measure, std::make_shared<Node>(height, std::move(parts))};
}

/// A tree of parts of one height; an empty part if there are none.
Part treeOf(Parts parts) {
    while (parts.size() > 1) {
        Parts above;
        for (std::size_t start = 0; start < parts.size(); start += mostParts) {
            const auto first = parts.begin() + static_cast<std::ptrdiff_t>(start);
            const std::size_t count = std::min(mostParts, parts.size() - start);
            above.push_back(
                nodeOf(Parts(std::make_move_iterator(first),
                             std::make_move_iterator(first + static_cast<std::ptrdiff_t>(count)))));
        }
        parts = std::move(above);
    }
    return parts.empty() ? Part() : std::move(parts.front());
}

/// Without a torn name at the end, which would count as any name; unless little else is there.
TextChunk withWholeNames(TextChunk chunk) {
    const int torn = chunk.tornName();
    return torn < TextChunk::least ? std::move(chunk) : chunk.part(0, torn);
}

Part treeOf(std::wstring_view text, LexicalState entry) {
    Parts leaves;
    for (std::size_t start = 0; start < text.size();) {
        TextChunk chunk = withWholeNames({text.substr(start, TextChunk::most), entry});
        start += static_cast<std::size_t>(chunk.size());
        entry = chunk.exit();
        leaves.push_back(leafOf(std::move(chunk)));
    }
    return treeOf(std::move(leaves));
}

LexicalState exitOf(const Part& part) {
    if (!part.node)
        return {};
    const Node* node = part.node.get();
    while (!node->isLeaf())
        node = node->parts.back().node.get();
    return node->chunk.exit();
}

// Joining and splitting

Parts joinLeaves(Part first, Part second) {
    const TextChunk& before = first.node->chunk;
    const TextChunk& behind = second.node->chunk;
    const int size = before.size() + behind.size();
    if (size > TextChunk::most && std::min(before.size(), behind.size()) >= TextChunk::least)
        return {std::move(first), std::move(second)};
    TextChunk joined = before;
    joined.append(behind);
    if (size <= TextChunk::most)
        return {leafOf(std::move(joined))};
    TextChunk half = withWholeNames(joined.part(0, size / 2));
    TextChunk rest = joined.part(half.size(), size);
    return {leafOf(std::move(half)), leafOf(std::move(rest))};
}

/// One part or two of so many, of which none has few.
Parts nodesOf(Parts parts) {
    if (parts.size() <= mostParts)
        return {nodeOf(std::move(parts))};
    const auto half = parts.begin() + static_cast<std::ptrdiff_t>(parts.size() / 2);
    return {nodeOf(Parts(parts.begin(), half)), nodeOf(Parts(half, parts.end()))};
}

/// Two parts as one or two that are as high as the higher one.
Parts joinParts(const Part& first, const Part& second) {
    const Node& before = *first.node;
    const Node& behind = *second.node;
    if (before.isLeaf() && behind.isLeaf())
        return joinLeaves(first, second);
    Parts parts;
    if (before.height == behind.height) {
        if (std::min(before.parts.size(), behind.parts.size()) >= leastParts)
            return {first, second};
        parts = before.parts;
        parts.insert(parts.end(), behind.parts.begin(), behind.parts.end());
    } else if (before.height > behind.height) {
        parts.assign(before.parts.begin(), before.parts.end() - 1);
        Parts joined = joinParts(before.parts.back(), second);
        std::move(joined.begin(), joined.end(), std::back_inserter(parts));
    } else {
        parts = joinParts(first, behind.parts.front());
        parts.insert(parts.end(), behind.parts.begin() + 1, behind.parts.end());
    }
    return nodesOf(std::move(parts));
}

Part join(Part first, Part second) {
    if (!first.node || !second.node)
        return first.node ? first : second;
    return treeOf(joinParts(first, second));
}

/// The part that holds a position, or the last one; from whose start on the position counts then.
template <typename Children>
auto childAt(Children& parts, int& position) {
    ++StoreWork::ofThisThread().nodes;
    auto child = parts.begin();
    for (; child + 1 != parts.end() && position >= child->measure.length; ++child)
        position -= child->measure.length;
    return child;
}

/// The parts before and from a position on.
std::pair<Part, Part> split(const Part& part, int position) {
    if (position <= 0 || !part.node)
        return {Part(), part};
    if (position >= part.measure.length)
        return {part, Part()};
    const Node& node = *part.node;
    if (node.isLeaf())
        return {leafOf(node.chunk.part(0, position)),
                leafOf(node.chunk.part(position, node.chunk.size()))};
    const auto cut = childAt(node.parts, position);
    auto [before, behind] = split(*cut, position);
    Part front = treeOf(Parts(node.parts.begin(), cut));
    Part back = treeOf(Parts(cut + 1, node.parts.end()));
    return {join(std::move(front), std::move(before)), join(std::move(behind), std::move(back))};
}

// Changing within a chunk

/// The node of a part, which nobody else has.
Node& ownNode(Part& part) {
    if (part.node.use_count() > 1)
        part.node = std::make_shared<Node>(*part.node);
    return *part.node;
}

/// Changes plain text of one chunk where it stands.
void changePlain(Part& part, int position, int count, std::wstring_view with) {
    Node& node = ownNode(part);
    if (node.isLeaf()) {
        node.chunk.replacePlain(position, count, with);
    } else {
        const auto child = childAt(node.parts, position);
        changePlain(*child, position, count, with);
    }
    part.measure.length += static_cast<int>(with.size()) - count;
}

/// Exchanges the chunk that holds a position, on the way to which all nodes become the tree's own.
void exchangeChunk(Part& part, int position, TextChunk&& chunk) {
    if (part.node->isLeaf()) {
        part = leafOf(std::move(chunk));
        return;
    }
    Node& node = ownNode(part);
    const auto child = childAt(node.parts, position);
    exchangeChunk(*child, position, std::move(chunk));
    part.measure = {};
    for (const Part& each : node.parts)
        part.measure += each.measure;
}

TextTree::Place chunkIn(const Part& root, int position) {
    const Node* node = root.node.get();
    int within = position;
    while (node && !node->isLeaf())
        node = childAt(node->parts, within)->node.get();
    return {node ? &node->chunk : nullptr, position - within};
}

/// Reads chunks anew behind the one that ends at or holds a position, until one begins as it did.
/// Those of which units may have been joined to others there agree with each other and prove
/// nothing.
void readOn(Part& root, int position) {
    LexicalState state;
    int start = 0;
    if (position > 0) {
        const TextTree::Place before = chunkIn(root, position - 1);
        state = before.chunk->exit();
        start = before.start + before.chunk->size();
    }
    while (start < root.measure.length) {
        const TextTree::Place place = chunkIn(root, start);
        start += place.chunk->size();
        if (place.chunk->entry() != state) {
            TextChunk chunk = place.chunk->readFrom(state);
            state = chunk.exit();
            exchangeChunk(root, place.start, std::move(chunk));
        } else if (place.start < position + TextChunk::most) {
            state = place.chunk->exit();
        } else {
            return;
        }
    }
}

// Asking

/// Asks the parts that begin before a position, the last one first, for where in it something
/// stands; -1 if in none.
template <typename Ask>
int lastIn(const Node& node, int position, Ask ask) {
    int start = 0;
    auto part = node.parts.begin();
    for (; part != node.parts.end() && start < position; ++part)
        start += part->measure.length;
    while (part != node.parts.begin()) {
        --part;
        start -= part->measure.length;
        if (const int found = ask(*part, position - start); found >= 0)
            return start + found;
    }
    return -1;
}

int firstMark(const Part& part, int position, MarkKinds kinds) {
    if (!part.measure.kinds.hasAnyOf(kinds))
        return -1;
    ++StoreWork::ofThisThread().nodes;
    if (part.node->isLeaf()) {
        const MarkupMark* const mark = part.node->chunk.markFrom(position, kinds);
        return mark ? mark->at : -1;
    }
    int start = 0;
    for (const Part& child : part.node->parts) {
        if (position < start + child.measure.length)
            if (const int found = firstMark(child, position - start, kinds); found >= 0)
                return start + found;
        start += child.measure.length;
    }
    return -1;
}

int lastMark(const Part& part, int position, MarkKinds kinds) {
    if (!part.measure.kinds.hasAnyOf(kinds))
        return -1;
    ++StoreWork::ofThisThread().nodes;
    if (!part.node->isLeaf())
        return lastIn(*part.node, position,
                      [kinds](const Part& child, int end) { return lastMark(child, end, kinds); });
    const MarkupMark* const mark = part.node->chunk.markBefore(position, kinds);
    return mark ? mark->at : -1;
}

/// `closed` counts the closing tags that were met behind the part and whose start tags were not.
int lastOpenTagEnd(const Part& part, int position, int& closed) {
    if (position >= part.measure.length && part.measure.rise <= closed) {
        closed -= part.measure.net;
        return -1;
    }
    ++StoreWork::ofThisThread().nodes;
    if (!part.node->isLeaf())
        return lastIn(*part.node, position, [&closed](const Part& child, int end) {
            return lastOpenTagEnd(child, end, closed);
        });
    const std::vector<MarkupMark>& marks = part.node->chunk.marks();
    for (std::size_t mark = part.node->chunk.marksBefore(position); mark > 0; --mark) {
        const MarkKind kind = marks[mark - 1].kind;
        if (kind == MarkKind::OpeningEnd && closed-- == 0)
            return marks[mark - 1].at;
        closed += kind == MarkKind::ClosingEnd;
    }
    return -1;
}

// Checking

std::string_view faultIn(const Part& part, LexicalState& state) {
    const Node& node = *part.node;
    if (node.isLeaf()) {
        const TextChunk& chunk = node.chunk;
        if (chunk.size() == 0 || chunk.size() > TextChunk::most)
            return "a chunk has no units or too many";
        if (chunk.entry() != state)
            return "a chunk does not begin as the one before ends";
        const TextChunk anew = chunk.readFrom(state);
        if (anew.measure() != part.measure || anew.exit() != chunk.exit())
            return "a chunk is not what its units say";
        state = chunk.exit();
        return {};
    }
    if (node.parts.size() > mostParts || node.parts.empty())
        return "a node has too few parts or too many";
    Measure measure;
    for (const Part& child : node.parts) {
        if (child.node->height != node.height - 1)
            return "a part has another height than those beside it";
        if (const std::string_view fault = faultIn(child, state); !fault.empty())
            return fault;
        measure += child.measure;
    }
    return measure == part.measure ? std::string_view() : "a sum is not that of its parts";
}

} // namespace

TextTree::TextTree(std::wstring_view text) : root_(treeOf(text, {})) {}

TextTree::Place TextTree::chunkAt(int position) const {
    return chunkIn(root_, position);
}

int TextTree::markFrom(int position, MarkKinds kinds) const {
    return root_.node ? firstMark(root_, position, kinds) : -1;
}

int TextTree::markBefore(int position, MarkKinds kinds) const {
    return root_.node ? lastMark(root_, position, kinds) : -1;
}

int TextTree::openTagEndBefore(int position) const {
    int closed = 0;
    return root_.node ? lastOpenTagEnd(root_, position, closed) : -1;
}

void TextTree::replace(int start, int count, std::wstring_view with) {
    if (replaceInChunk(start, count, with))
        return;
    auto [front, rest] = split(root_, start);
    Part back = split(rest, count).second;
    const LexicalState state = exitOf(front);
    Part root = join(join(std::move(front), treeOf(with, state)), std::move(back));
    readOn(root, start + static_cast<int>(with.size()));
    root_ = std::move(root);
}

/// Answers whether it is done: all else needs the text to be cut and joined anew.
bool TextTree::replaceInChunk(int start, int count, std::wstring_view with) {
    const Place place = chunkAt(start);
    const int at = start - place.start;
    if (!place.chunk || at + count > place.chunk->size())
        return false;
    const int size = place.chunk->size() - count + static_cast<int>(with.size());
    const int least = root_.node->isLeaf() ? 1 : TextChunk::least;
    if (size < least || size > TextChunk::most)
        return false;
    if (place.chunk->canReplacePlain(at, count, with)) {
        changePlain(root_, start, count, with);
        return true;
    }
    TextChunk chunk = place.chunk->replaced(at, count, with);
    if (chunk.exit() != place.chunk->exit())
        return false;
    exchangeChunk(root_, start, std::move(chunk));
    return true;
}

std::string_view TextTree::fault() const {
    LexicalState state;
    return root_.node ? faultIn(root_, state) : std::string_view();
}
