#include "trees/KeptSpelling.h"

#include <gtest/gtest.h>

namespace {

struct Case {
    const wchar_t* source;
    const wchar_t* asRead;
    const wchar_t* edited;
    const wchar_t* kept;
};

} // namespace

TEST(KeptSpelling, LeavesWhatNobodyTouched) {
    for (const Case& each : {
             // an element that moved, and one in the place of another
             Case{L"<a ><b  x='1'/> <c/></a >", LR"(<a><b x="1"/> <c/></a>)",
                  LR"(<a><c/><b x="1"/></a>)", L"<a ><c/><b  x='1'/></a >"},
             Case{L"<a><b/>&#10;<!-- --><c/></a>", L"<a><b/>\n<!-- --><c/></a>",
                  L"<a><b/>\n<!-- --><d/></a>", L"<a><b/>&#10;<!-- --><d/></a>"},
             // attributes: one changed, one gone, one new, one in its element's own prefix
             Case{L"<p:a p:x='1'\ny='&#49;' z='3'>t</p:a>", LR"(<p:a x="1" y="1" z="3">t</p:a>)",
                  LR"(<p:a x="2" y="1" w="4">t</p:a>)",
                  L"<p:a p:x=\"2\"\ny='&#49;' w=\"4\">t</p:a>"},
             Case{L"<a><b/><c ></c></a>", L"<a><b/><c/></a>", LR"(<a><b x="1"/><c y="2"/></a>)",
                  LR"(<a><b x="1"/><c y="2" ></c></a>)"},
             Case{L"<p:a p:x='1' x='2' y='3'/>", LR"(<p:a p:x="1" x="2" y="3"/>)",
                  LR"(<p:a p:x="4" x="2" y="3" p:z="5"/>)",
                  LR"(<p:a p:x="4" x='2' y='3' p:z="5"/>)"},
             // a name tells which element it was
             Case{L"<a><b id='1'/><b id='2' x='1'/></a>", LR"(<a><b id="1"/><b id="2" x="1"/></a>)",
                  LR"(<a><b id="2" x="2"/><b id="3"/></a>)",
                  LR"(<a><b id='2' x="2"/><b id="3"/></a>)"},
             // a shorthand goes with all that it speaks for, and with nothing else
             Case{L"<a margin-left='1' padding='0' margin-top='1'><b/></a>",
                  LR"(<a margin="1"><b/></a>)", LR"(<a margin="1 2"><b/></a>)",
                  L"<a padding='0' margin=\"1 2\"><b/></a>"},
             // an element that only has another name
             Case{L"<a><b  x='1'>&#49;</b></a>", LR"(<a><b x="1">1</b></a>)",
                  LR"(<a><p:c x="1">1</p:c></a>)", LR"(<a><p:c x="1">&#49;</p:c></a>)"},
             // an element that was empty, and an entity that holds elements
             Case{L"<a  x='1'/>", LR"(<a x="1"/>)", LR"(<a x="1"><b/></a>)", L"<a  x='1'><b/></a>"},
             Case{L"<a  x='1'></a>", LR"(<a x="1"/>)", LR"(<a x="2"/>)", L"<a  x=\"2\"></a>"},
             Case{L"<a></a >", L"<a/>", L"<a>t</a>", L"<a>t</a >"},
             Case{L"<a>&e;<c  /></a>", L"<a><b/><c/></a>", L"<a><b/><c x=\"1\"/></a>",
                  L"<a><b/><c x=\"1\"/></a>"},
         })
        EXPECT_EQ(keepSpelling(each.source, each.asRead, each.edited), Core::String(each.kept));
}

TEST(KeptSpelling, ReadsNestedElementsOnce) {
    const auto nested = [](const wchar_t* start, const wchar_t* end) {
        Core::String text;
        for (int level = 0; level < 5000; ++level)
            text += start;
        for (int level = 0; level < 5000; ++level)
            text += end;
        return text;
    };
    EXPECT_EQ(keepSpelling(nested(L"<a  ><t ></t >&#65;", L"</a >"), nested(L"<a><t/>A", L"</a>"),
                           nested(L"<a><t>B</t>A", L"</a>")),
              nested(L"<a  ><t >B</t >&#65;", L"</a >"));
}
