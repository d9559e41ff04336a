#include "updates/NotesMarkup.h"

#include <gtest/gtest.h>

#include <random>
#include <regex>
#include <string>
#include <utility>
#include <vector>

namespace pello {
namespace {

TEST(NotesMarkupTest, WhatNotesAreMadeOfStays) {
    EXPECT_EQ(
        sanitizedNotes("<h2 class=x>New</h2>\n<ul><li>One<li><b>Two</b> &amp; <em>three</em></ul>"),
        "<h4>New</h4>\n<ul><li>One</li><li><b>Two</b> &amp; <i>three</i></li></ul>");
    EXPECT_EQ(sanitizedNotes("<P>See <A HREF='https://example.org/?a=1&b=\"2\"'>here</A><br/>ok"),
              "<p>See <a href=\"https://example.org/?a=1&amp;b=&quot;2&quot;\">here</a><br>ok</p>");
    EXPECT_EQ(sanitizedNotes("faster\nif a < b && c > d"),
              "faster<br>if a &lt; b &amp;&amp; c &gt; d");
}

TEST(NotesMarkupTest, WhatCouldDoAnythingGoes) {
    const std::pair<const char*, const char*> cases[] = {
        {"a<script>alert('</b>')</script>b", "ab"},
        {"a<SCRIPT src=//evil.example/x.js>never closed <b>c</b>", "a"},
        {"a<style>p { background: url(http://evil.example) }</style >b", "ab"},
        {"<img src=x onerror=alert(1)>a<image href=y><embed src=z>", "a"},
        {"<p onclick=\"steal()\" style='background:url(http://evil.example)'>a", "<p>a</p>"},
        {"<a href=javascript:alert(1)>a</a> <a href=\"java&#115;cript:x\">b</a>", "a b"},
        {"<a href=' https://example.org'>a</a><a href='file:///etc/passwd'>b</a>", "ab"},
        {"<a title='>' href=\"http://h/\" href=\"data:text/html,x\">a</a>", "a"},
        {"<a href='http://h/\"><script>x</script>'>a</a>",
         "<a href=\"http://h/&quot;&gt;&lt;script&gt;x&lt;/script&gt;\">a</a>"},
        {"<scr<script>ipt>alert(1)</script>", "ipt&gt;alert(1)"},
        {"<svg><a href=http://h>x</a><script>y</script></svg>b<math>z", "b"},
        {"a<iframe src='http://evil.example'>b</iframe>c<object data=x>d</object>", "ac"},
        {"a<!-- <b>x</b> --><![CDATA[y]]><?php z ?>b<!-- open", "ab"},
        {"&lt;script&gt;x&lt;/script&gt; &#60;b> &bogus &#;",
         "&lt;script&gt;x&lt;/script&gt; &#60;b&gt; &amp;bogus &amp;#;"},
        {"a</p></ul></div><table><tr><td>b", "a<p>b</p>"},
        {"a<b", "a<b></b>"},
    };
    for (const auto& [hostile, safe] : cases) {
        EXPECT_EQ(sanitizedNotes(hostile), safe) << hostile;
    }
}

/// Whether nothing stands between "<" and ">" but what the sanitizer writes, each closed in turn.
bool isSafe(const std::string& notes) {
    static const std::regex kTag(
        R"re(<(/?)(p|h4|ul|ol|li|b|i|code|pre|blockquote|a)( href="https?://[^"<>]*")?>|<br>)re");
    std::vector<std::string> open;
    std::string text;
    auto tag = std::sregex_iterator(notes.begin(), notes.end(), kTag);
    for (; tag != std::sregex_iterator(); ++tag) {
        text += tag->prefix();
        if ((*tag)[1].length() > 0) {
            if (open.empty() || open.back() != (*tag)[2]) {
                return false;
            }
            open.pop_back();
        } else if ((*tag)[2].matched) {
            open.push_back((*tag)[2]);
        }
    }
    return open.empty() && text.find_first_of("<>") == std::string::npos;
}

TEST(NotesMarkupTest, WhateverComesInOnlySafeTagsComeOut) {
    const std::vector<std::string> pieces = {
        "<",    ">",       "/",         "\"",  "'",    "=",       "&",    "<a href=", "http://h/",
        "</a>", "<script", "</script>", "<p>", "</p>", "<ul>",    "<li>", "<!--",     "-->",
        "<b",   "x",       " ",         "\0",  "\xff", "<style>", "<svg"};
    std::mt19937 random(1); // the same texts in every run
    for (int text = 0; text < 4000; ++text) {
        std::string html;
        for (std::size_t count = random() % 24; count > 0; --count) {
            html += pieces[random() % pieces.size()];
        }
        const std::string notes = sanitizedNotes(html);
        ASSERT_TRUE(isSafe(notes)) << html << "\nbecomes\n" << notes;
    }
}

TEST(NotesMarkupTest, NestingAndLengthHaveLimits) {
    std::string deep;
    for (int times = 0; times < 20000; ++times) {
        deep += "<ul>";
    }
    const std::string notes = sanitizedNotes(deep + "x");
    EXPECT_LT(notes.size(), 200U);
    EXPECT_LT(sanitizedNotes(std::string(1 << 20, 'x')).size(), std::size_t{70} << 10);
}

} // namespace
} // namespace pello
