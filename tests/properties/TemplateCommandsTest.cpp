// Random commands on what documents carry beside their content: a template's data, computed values,
// promo places, bookmarks, annotations, conditional sections and forms, with typing, undo and redo
// between them. A failure is printed as the requests that lead to it. FORME_RANDOM_COMMANDS sets
// how many steps are tried, FORME_RANDOM_SEED where they begin.

#include "document/Document.h"
#include "properties/RandomCommands.h"
#include "support/Documents.h"
#include "support/WellFormed.h"
#include "text/XmlScan.h"

#include <gtest/gtest.h>

#include <fstream>
#include <regex>

namespace {

using Core::String;

// What is written

std::string word(Random& random) {
    static const std::vector<std::string> words{"a", "customer/name", "x1", "red", "2in"};
    return random.oneOf(words);
}

/// What has to be escaped somewhere, or could be taken for markup.
std::string trickyText(Random& random) {
    static const std::vector<std::string> pieces{"a", "<",      "&",   "\"",    "'", "]]>", "\n",
                                                 " ", "\u00A0", "{0}", "&amp;", "(", ")",   "-->"};
    std::string text = word(random);
    for (std::size_t i = random.below(4); i > 0; --i)
        text += random.oneOf(pieces);
    return text + word(random);
}

std::string anId(Random& random) {
    return "id" + std::to_string(random.below(3));
}

template <typename Make>
Json listOf(Random& random, Make make) {
    Json list = Json::array();
    for (std::size_t i = random.below(4); i > 0; --i)
        list.push_back(make());
    return list;
}

Json variables(Random& random) {
    return listOf(random, [&] {
        return Json{{"name", word(random)}, {"value", trickyText(random)}};
    });
}

Json scripts(Random& random) {
    return listOf(random, [&] {
        const bool isSharp = random.oneIn(2);
        const std::string uses = R"(<msxsl:assembly name="a.dll" /><msxsl:using namespace="b"/>)";
        return Json{{"namespacePrefix", word(random)},
                    {"language", isSharp ? "CSharp" : "JScript"},
                    {"text", (random.oneIn(2) ? uses : "") + trickyText(random)}};
    });
}

Json entries(Random& random) {
    const auto mayBe = [&] { return random.oneIn(2) ? trickyText(random) : ""; };
    return listOf(random, [&] {
        return Json{{"object", anId(random)},
                    {"attribute", "fo:src"},
                    {"condition", mayBe()},
                    {"value", mayBe()},
                    {"dynamicValue", mayBe()}};
    });
}

Json styleSheet(Random& random) {
    return random.oneIn(3) ? ""
                           : R"(<xsl:template name="t"><fo:block>a &lt; &amp; )" + word(random) +
                                 "\u00A0</fo:block></xsl:template>";
}

/// Static, computed or by conditions, of which the first row must have one.
Json value(Random& random, const std::string& name, const std::string& id) {
    Json value{{"name", name}, {"id", id},      {"type", random.below(3)},
               {"static", ""}, {"dynamic", ""}, {"rows", Json::array()}};
    if (value["type"] == 0)
        value["static"] = "a&<\"b";
    if (value["type"] == 1)
        value["dynamic"] = trickyText(random);
    for (std::size_t i = value["type"] == 2 ? 1 + random.below(3) : 0; i > 0; --i) {
        const bool isDynamic = random.oneIn(2);
        const bool hasCondition = value["rows"].empty() || random.oneIn(2);
        value["rows"].push_back({{"static", isDynamic ? "" : trickyText(random)},
                                 {"dynamic", isDynamic ? trickyText(random) : ""},
                                 {"condition", hasCondition ? trickyText(random) : ""},
                                 {"isDynamic", isDynamic}});
    }
    return value;
}

Json promoPlaces(Random& random) {
    return listOf(random, [&] {
        return Json{{"source", value(random, "fo:src", "")},
                    {"alignmentConstraint", random.below(4)},
                    {"pageConstraint", random.below(6)},
                    {"regionConstraint", 0},
                    {"ruleKeyword", value(random, "qf:rule", "")}};
    });
}

Json signature(Random& random) {
    Json signature;
    for (const char* field : {"name", "location", "reason", "title", "certificateSerialNumber"})
        signature[field] = trickyText(random);
    return signature;
}

/// What is a list of its own, and is given back as it was taken.
struct ListKind {
    const char* qualifier;
    const char* override;
    const char* get;
    Json (*made)(Random&);
};

constexpr std::array lists{
    ListKind{"template", "overrideVariables", "getVariables", &variables},
    ListKind{"template", "overrideScripts", "getScripts", &scripts},
    ListKind{"template", "setQFDAttributes", "getQFDAttributes", &entries},
    ListKind{"template", "overrideGlobalXsltText", "getGlobalXsltText", &styleSheet},
    ListKind{"promo", "overrideTranspromoList", "getTranspromoList", &promoPlaces}};

/// Ids are made anew.
Json withoutIds(Json list) {
    for (Json& place : list)
        for (const char* property : {"source", "ruleKeyword"})
            if (place.is_object() && place.contains(property))
                place[property].erase("id");
    return list;
}

/// The controls of a document as sets of attributes, but for their colours.
std::vector<std::set<std::string>> controlsIn(const std::string& text) {
    static const std::regex tag("<qf:form-control([^>]*)>");
    static const std::regex attribute(R"(([\w:-]+)\s*=\s*("[^"]*"|'[^']*'))");
    std::vector<std::set<std::string>> controls;
    for (std::sregex_iterator it(text.begin(), text.end(), tag), end; it != end; ++it) {
        const std::string attributes = (*it)[1];
        std::set<std::string>& control = controls.emplace_back();
        for (std::sregex_iterator at(attributes.begin(), attributes.end(), attribute); at != end;
             ++at)
            if (const std::string name = (*at)[1]; !name.ends_with("color"))
                control.insert(name.substr(name.find(':') + 1) + (*at)[2].str().substr(1));
    }
    return controls;
}

class TemplateSession : public WatchedSession {
public:
    explicit TemplateSession(const std::string& path) : WatchedSession(path) {}

    const std::string& requests() const { return requests_; }

    /// What a step breaks, which its number alone determines.
    std::string step(std::uint32_t number) {
        Random random(number);
        using Kind = std::string (TemplateSession::*)(Random&);
        struct Weighted {
            std::size_t weight;
            Kind kind;
        };
        static constexpr std::array kinds{
            Weighted{6, &TemplateSession::edit},          Weighted{2, &TemplateSession::askAll},
            Weighted{4, &TemplateSession::replaceList},   Weighted{2, &TemplateSession::writeValue},
            Weighted{1, &TemplateSession::editBookmarks}, Weighted{2, &TemplateSession::sign},
            Weighted{3, &TemplateSession::editSections},  Weighted{2, &TemplateSession::fillForms},
            Weighted{1, &TemplateSession::commitLate}};
        std::string broken = (this->*random.oneByWeight(kinds).kind)(random);
        if (broken.empty())
            broken = xmlError(text());
        return broken.empty() ? brokenCaret() : broken;
    }

private:
    static constexpr std::array<const char*, 6> opened{"template",    "promo",    "bookmarks",
                                                       "annotations", "sections", "security"};

    String text() { return document().getContent(); }
    String textFrom(int position) {
        return position < 0 ? String()
                            : text().subString(static_cast<unsigned>(position),
                                               static_cast<unsigned>(text().length() - 1));
    }

    Json ask(const Json& request) {
        requests_ += request.dump() + "\n";
        return session().serve(request);
    }
    std::string carryOutLogged(const Json& request) {
        requests_ += request.dump() + "\n";
        return carryOut(request.dump());
    }
    Json resultOf(const Json& request) { return ask(request).value("result", Json()); }

    bool open(const std::string& qualifier, std::size_t type = 0) {
        Json request{qualifier + ".open"};
        if (qualifier == "sections")
            request.push_back(type);
        if (qualifier == "promo")
            request.push_back("");
        if (ask(request).contains("error"))
            return false;
        // Where the caret is in no such sections, or in no page sequence, there is an object, but
        // nothing in it.
        if (qualifier == "sections")
            return resultOf({"sections.getDocumentBufferStart"}) != -1;
        return qualifier != "promo" || !ask({"promo.getTranspromoList"}).contains("error");
    }

    std::string brokenCaret() {
        const EditorState now = state();
        for (const int position : {now.caret, now.pivot})
            if (position != -1 && XmlScan::unitStart(now.text.view(), position) != position)
                return "caret or pivot inside markup";
        return {};
    }

    /// A commit that raises has left no trace; any other is one step.
    std::string commit(const std::string& qualifier) {
        const EditorState before = state();
        const bool joinsTyping = qualifier == "promo" && Document::of(document()).typingGroup;
        const std::string error = carryOutLogged({qualifier + ".commit"});
        if (error.starts_with("a "))
            return error; // of the notices
        if (!error.empty())
            return state() == before ? "" : "a commit that raises changes something: " + error;
        if (before.text == text() || joinsTyping)
            return {};
        const EditorState after = state();
        ask({"undo"});
        const EditorState undone = state();
        ask({"redo"});
        if (undone.text != before.text || (before.caret >= 0 && undone != before))
            return "undoing it brings something else back";
        return after.text == text() ? "" : "redoing it gives something else";
    }

    // The steps

    std::string edit(Random& random) {
        static const CommandMix mix = everyCommand();
        const std::string command = randomCommand(random, document(), mix);
        requests_ += command + "\n";
        return carryOut(command);
    }

    std::string askAll(Random& random) {
        if (random.oneIn(2))
            if (std::string broken = carryOutLogged({"insertText", "x", false, false});
                !broken.empty())
                return broken;
        for (const char* qualifier : opened) {
            const EditorState before = state();
            const auto typing = Document::of(document()).typingGroup;
            const std::size_t recorded = Document::of(document()).history.recordedCount();
            if (!open(qualifier, random.below(2)))
                continue;
            if (qualifier == std::string("bookmarks"))
                ask({"bookmarks.getProcessedDocumentForControl"});
            if (state() != before || Document::of(document()).typingGroup != typing ||
                Document::of(document()).history.recordedCount() != recorded)
                return std::string("asking changes something: ") + qualifier;
            if (std::string broken = commit(qualifier); !broken.empty() || text() != before.text)
                return std::string("a commit of nothing changes something: ") + qualifier + broken;
        }
        return {};
    }

    std::string replaceList(Random& random) {
        const ListKind& kind = random.oneOf(lists);
        const auto request = [&](const char* name) {
            return std::string(kind.qualifier) + "." + name;
        };
        if (!open("template") || !open(kind.qualifier)) // which keeps what is not static of places
            return {};
        const Json list = kind.made(random);
        const String pages = textFrom(document().getLayoutMasterSetPosition());
        if (const Json reply = ask({request(kind.override), list}); reply.contains("error"))
            return reply["error"];
        if (std::string broken = commit(kind.qualifier); !broken.empty() || !open(kind.qualifier))
            return broken;
        Json now = resultOf({request(kind.get)});
        if (now.is_string()) // markup, in the spelling of what writes it
            now = std::regex_replace(now.get<std::string>(), std::regex("&#x00A0;"), "\u00A0");
        if (withoutIds(now) != withoutIds(list))
            return "it reads back as " + now.dump();
        const bool isAhead = kind.qualifier == std::string("template");
        return isAhead && textFrom(document().getLayoutMasterSetPosition()) != pages
                   ? "the pages have changed"
                   : "";
    }

    std::string writeValue(Random& random) {
        const std::string id = anId(random);
        const Json written = value(random, "fo:color", id);
        const auto others = [&] {
            Json all = open("template") ? resultOf({"template.getQFDAttributes"}) : Json::array();
            std::erase_if(all.get_ref<Json::array_t&>(), [&](const Json& entry) {
                return entry["object"] == id && entry["attribute"] == "fo:color";
            });
            return all;
        };
        const Json before = others();
        const bool isTemplate = open("template");
        carryOutLogged({"values.write", written}); // what it refuses reads back otherwise
        if (!isTemplate)
            return {};
        Json read = resultOf(
            {"values.read", Json{{"name", "fo:color"}, {"id", id}, {"static", written["static"]}}});
        return read != written      ? "the value reads back as " + read.dump()
               : others() != before ? "other entries have changed"
                                    : "";
    }

    std::string editBookmarks(Random& random) {
        const auto roundTrip = [&](const std::string& added) {
            open("bookmarks");
            const int start = resultOf({"bookmarks.getDocumentBufferStart"});
            const int end = resultOf({"bookmarks.getDocumentBufferEnd"});
            std::string control = resultOf({"bookmarks.getProcessedDocumentForControl"});
            const std::size_t close = control.rfind("</bookmark-tree>");
            if (!added.empty() && close != std::string::npos)
                control.insert(close, added);
            const String before = text();
            ask({"bookmarks.getProcessedTreeForDocument", control});
            std::string broken = commit("bookmarks");
            const auto unsignedOf = [](int number) { return static_cast<unsigned>(number); };
            if (broken.empty() && start > 0 && before.find(L"xmlns:qfd=", 0) >= 0 &&
                (!text().startsWith(before.subString(0, unsignedOf(start - 1))) ||
                 !text().view().ends_with(before.view().substr(unsignedOf(end)))))
                broken = "what stands around the bookmarks has changed";
            return broken;
        };
        std::string broken = roundTrip(
            "<bookmark title=\"a &lt; &quot;b&amp;\" id=\"x\"><dynamic-bookmark title=\"" +
            word(random) + "\"/></bookmark>");
        const String once = text();
        for (int i = 0; i < 3 && broken.empty(); ++i)
            if (broken = roundTrip(""); broken.empty() && text() != once)
                broken = "bookmarks change on their way there and back";
        return broken;
    }

    std::string sign(Random& random) {
        if (!open("annotations"))
            return {};
        const std::string id = anId(random);
        const Json written = signature(random);
        const bool removes = resultOf({"annotations.hasDocumentSignature"}) && random.oneIn(2);
        const Json old = resultOf({"annotations.getDocumentSignatureID"});
        if (removes)
            ask({"annotations.removeDocumentSignature", old});
        else
            ask({"annotations.setDocumentSignature", written, id});
        if (std::string broken = commit("annotations"); !broken.empty())
            return broken;
        open("annotations");
        if (removes)
            return resultOf({"annotations.getDocumentSignatureID"}) == "" &&
                           resultOf({"annotations.getAnnotation", old}).is_null()
                       ? ""
                       : "the signature is still there";
        // Without one in its annotation another element bears it, which is never read.
        return !resultOf({"annotations.hasDocumentSignature"}) ||
                       resultOf({"annotations.getDocumentSignature"}) == written
                   ? ""
                   : "the signature reads back as " +
                         resultOf({"annotations.getDocumentSignature"}).dump();
    }

    /// Puts the caret into one of the elements whose names begin so.
    void enter(Random& random, const String& name) {
        std::vector<int> found;
        for (int at = text().find(name, 0); at >= 0;
             at = text().find(name, static_cast<unsigned>(at + 1)))
            found.push_back(at);
        if (found.empty())
            return;
        int place = random.oneOf(found);
        for (const int end = std::min(place + 300, text().length());
             place < end && document().getCaretPos() != place; ++place)
            document().setCaretPos(false, place);
        requests_ += Json{"setCaretPos", false, document().getCaretPos()}.dump() + "\n";
    }

    Json tests() {
        Json all = Json::array();
        for (int i = 0;; ++i) {
            const Json section = resultOf({"sections.getConditionalBlockAtIndex", i});
            if (section.is_null())
                return all;
            all.push_back(resultOf({"sections.getAttributeValue", section, "test", ""}));
        }
    }

    std::string editSections(Random& random) {
        const std::size_t type = random.below(2);
        enter(random, type ? L"<qfd:conditional-inline " : L"<qfd:conditional-block ");
        if (!open("sections", type))
            return {};
        const int start = resultOf({"sections.getDocumentBufferStart"});
        Json expected = tests();
        const String before = text();
        const String head = before.subString(0, static_cast<unsigned>(start - 1));
        const String tail = textFrom(resultOf({"sections.getDocumentBufferEnd"}).get<int>() + 1);
        const std::string test = trickyText(random);
        switch (random.below(3)) {
        case 0:
            ask({"sections.insertConditionalSection", test});
            expected.insert(expected.begin(), test);
            break;
        case 1:
            ask({"sections.insertFallbackSection"});
            expected.push_back("");
            break;
        default:
            if (!resultOf({"sections.canDeleteSection"}).get<bool>())
                return {};
            const int index =
                resultOf({"getConditionIndex", before.length() ? document().getCaretPos() : 0,
                          type ? "conditional-inline-sequence" : "conditional-block-sequence",
                          type ? "conditional-inline" : "conditional-block"});
            ask({"sections.deleteCurrentConditionalSection"});
            if (index < static_cast<int>(expected.size()))
                expected.erase(static_cast<std::size_t>(index));
        }
        if (std::string broken = commit("sections"); !broken.empty())
            return broken;
        if (!text().startsWith(head) || !text().view().ends_with(tail.view()))
            return "what stands around the sections has changed";
        const bool isThere =
            open("sections", type) && resultOf({"sections.getDocumentBufferStart"}) == start;
        return !isThere || tests() == expected ? "" : "the tests are " + tests().dump();
    }

    std::string fillForms(Random& random) {
        enter(random, L"<qf:form>");
        const std::size_t type = random.below(5);
        switch (random.below(4)) {
        case 0:
            return carryOutLogged({"insertFormControl", type, random.oneIn(2), random.oneIn(2),
                                   random.oneIn(3) ? trickyText(random) : ""});
        case 1:
            return carryOutLogged({"insertEmptyForm", false});
        case 2: {
            const auto before = controlsIn(Wire<String>::write(text()));
            carryOutLogged(
                {"applySkinOnForm", Json{{"fo:color", "red"}, {"fo:background-color", "blue"}}});
            carryOutLogged({"removeFormSkin"});
            return controlsIn(Wire<String>::write(text())) == before
                       ? ""
                       : "a skin leaves something behind";
        }
        default:
            const std::string name =
                resultOf({"getPreviousControlAttribute", "radiobutton", "qf:name"});
            if (std::string broken = carryOutLogged({"insertFormControl", 3, true, true, ""});
                !broken.empty())
                return broken;
            return carryOutLogged({"uncheckRadioButtonGroup", name});
        }
    }

    /// The text changes behind an open buffer.
    std::string commitLate(Random& random) {
        const ListKind& kind = random.oneOf(lists);
        if (!open(kind.qualifier))
            return {};
        if (std::string broken = edit(random); !broken.empty())
            return broken;
        ask({std::string(kind.qualifier) + "." + kind.override, kind.made(random)});
        return commit(kind.qualifier);
    }

    std::string requests_;
};

std::string brokenBy(const std::string& path, const std::vector<std::uint32_t>& steps,
                     std::string* requests = nullptr) {
    TemplateSession session(path);
    std::string broken;
    for (const std::uint32_t step : steps)
        if (broken = session.step(step); !broken.empty())
            break;
    if (requests)
        *requests = session.requests();
    return broken.empty() ? session.brokenHistory() : broken;
}

/// What goes wrong on a document, with the fewest steps that it takes; nothing if all is well.
std::string failureInSteps(const std::string& path, Random& random, std::size_t count) {
    std::vector<std::uint32_t> steps;
    for (std::size_t i = 0; i < count; ++i)
        steps.push_back(static_cast<std::uint32_t>(random.below(1U << 31)));
    if (brokenBy(path, steps).empty())
        return {};
    const auto small =
        shrunk(steps, [&](const auto& some) { return !brokenBy(path, some).empty(); });
    std::string requests;
    const std::string broken = brokenBy(path, small, &requests);
    return path + ":\n" + requests + broken;
}

} // namespace

TEST(TemplateCommands, KeepTheirPromises) {
    constexpr std::size_t perDocument = 25;
    const std::size_t total = setting("FORME_RANDOM_COMMANDS", 300);
    const auto documents = corpusAndSamples();
    Random random(static_cast<std::uint32_t>(setting("FORME_RANDOM_SEED", 1)));
    for (std::size_t done = 0; done < total; done += perDocument) {
        const bool isMailing = !random.oneIn(3);
        const auto path =
            isMailing ? samplesFolder() / (random.oneIn(4) ? "mailing-plain.xml" : "mailing.xml")
                      : random.oneOf(documents);
        EXPECT_EQ(failureInSteps(path, random, perDocument), "");
    }
}
