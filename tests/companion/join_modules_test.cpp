// What the build makes of the modules of the page, and which of them it refuses.
#include "driver/program_run.h"
#include "support/golden.h"

#include <QDir>
#include <QFile>
#include <QRegularExpression>

using namespace Qt::StringLiterals;

namespace {

class JoinModulesTest : public ProgramTest
{
protected:
    void SetUp() override
    {
        writeFile(u"page.html"_s, "{{title}}{{policy}}{{theme}}{{drawing}}{{data}}{{code}}\n");
        writeFile(u"theme.css"_s, "/* of\n two lines */\n a, d {\n  b: c, d;\n}\n");
        writeFile(u"order.txt"_s, "one.js\ntwo.js\n");
        writeFile(u"one.js"_s, "/** Said. */\nexport const one = 1;\n");
        writeFile(u"two.js"_s, "import { one } from './one.js';\nconsole.log(one);\n");
    }

    ProgramRun join(const QStringList &places = {u"title"_s, u"policy"_s}) const
    {
        return run(
            {.arguments = QStringList{path(u"."_s), path(u"parts.cpp"_s), u"a/parts.h"_s, u"page"_s}
                 + places,
             .command = QStringLiteral(ORR_JOIN_MODULES)});
    }

    // The text of a constant, as it stands between quotes.
    QByteArray constant(const QByteArray &name) const
    {
        const QByteArray parts = fileContent(u"parts.cpp"_s);
        const qsizetype start = parts.indexOf(name + '(');
        return parts.mid(start, parts.indexOf(");\n", start) - start);
    }

    // That of the page, as a browser gets it.
    QByteArray joinedCode() const
    {
        QByteArray code;
        for (const QByteArray &line : constant("pageCode").split('\n')) {
            const qsizetype start = line.indexOf('"');
            code +=
                start < 0 ? QByteArray() : line.mid(start + 1, line.lastIndexOf('"') - start - 1);
        }
        static const QRegularExpression octal(u"\\\\([0-7]{3})"_s);
        QString text = QString::fromUtf8(code);
        for (auto found = octal.match(text); found.hasMatch(); found = octal.match(text))
            text.replace(found.capturedStart(), 4, QChar(found.captured(1).toInt(nullptr, 8)));
        return text.toUtf8();
    }

    testing::AssertionResult refuses(const QString &file, const QByteArray &text,
                                     const QByteArray &message)
    {
        const QByteArray before = fileContent(file);
        writeFile(file, text);
        const ProgramRun run = join();
        writeFile(file, before);
        if (run.status == 1 && run.errors == "join_modules: " + message + '\n')
            return testing::AssertionSuccess();
        return testing::AssertionFailure() << run.status << ' ' << run.errors.toStdString();
    }
};

} // namespace

TEST_F(JoinModulesTest, joins_without_comments_and_imports)
{
    writeFile(u"one.js"_s,
              "/** Said.\n * More.\n */\n\nexport function one(/** @type {any} */ a) {\n"
              "    // nothing\n    return `${a}\\n` ?? '// x'; /** z */\n}\n");
    EXPECT_TRUE(succeeded(join()));
    EXPECT_EQ(joinedCode(),
              "(() => {\n'use strict';\nfunction one(a){return`${a}\\n`?\?'// x'}\n"
              "console.log(one);\n})();\n");
    EXPECT_EQ(constant("pageTheme"), "pageTheme(\n    \"a,d{b:c,d}\\012\",\n    11");
}

TEST_F(JoinModulesTest, takes_the_header_and_the_places_of_its_page)
{
    EXPECT_TRUE(succeeded(join({u"code"_s, u"drawing"_s})));
    EXPECT_TRUE(fileContent(u"parts.cpp"_s).startsWith("#include \"a/parts.h\"\n"));
    const ProgramRun run = join({u"code"_s, u"other"_s});
    EXPECT_EQ(run.status, 1);
    EXPECT_EQ(run.errors, "join_modules: page.html: has no place {{other}}\n");
}

TEST_F(JoinModulesTest, leaves_out_blanks_that_say_nothing)
{
    const QByteArrayList lines{
        "const one = (a, b) => a === b ? [a - -b] : { a, b };",
        "const two = of in typeof one;",
        "const three = ' = ' + \" '= \";",
        "const four = one / 2 / 3 < 4 ? / = / : 0;",
        "const five = ` = ${one ? ` ${ two } ' ` : ' ` '} - ` + 1;",
        "const six = a + ++b - c;",
        "const seven = '\\\\\\' ' in b;",
    };
    writeFile(u"one.js"_s, lines.join('\n') + '\n');
    writeFile(u"two.js"_s, "if (one)\n    one();\nelse\n    one;\n");
    EXPECT_TRUE(succeeded(join()));
    const QByteArrayList compact{
        "let one=(a,b)=>a===b?[a- -b]:{a,b}",
        "two=of in typeof one",
        "three=' = '+\" '= \"",
        "four=one/2/3<4?/ = /:0",
        "five=` = ${one ? ` ${ two } ' ` : ' ` '} - `+1",
        "six=a+ ++b-c",
        "seven='\\\\\\' 'in b",
    };
    EXPECT_EQ(joinedCode(),
              "(() => {\n'use strict';\n" + compact.join(',')
                  + ";\nif(one)one();else\none;\n})();\n");
}

TEST_F(JoinModulesTest, refuses_what_does_not_work_joined)
{
    EXPECT_TRUE(succeeded(join()));
    const QString one = u"one.js"_s;
    const QString two = u"two.js"_s;
    EXPECT_TRUE(
        refuses(one, "export default 1;\n",
                "one.js: exports something that is no declaration with a name: default 1;"));
    EXPECT_TRUE(refuses(one, "const a = 1;\nexport { a };\n",
                        "one.js: exports something that is no declaration with a name: { a };"));
    EXPECT_TRUE(refuses(two, "import { one as a } from './one.js';\n",
                        "two.js: imports under another name: import { one as a } from "
                        "'./one.js';"));
    EXPECT_TRUE(refuses(two, "import { other } from './one.js';\n",
                        "two.js: imports other, which one.js does not export"));
    EXPECT_TRUE(refuses(one, "import { two } from './two.js';\n",
                        "one.js: imports from two.js, which does not stand before it"));
    EXPECT_TRUE(refuses(two, "import './one.js';\n",
                        "two.js: imports in a way that can't be joined: import './one.js';"));
    EXPECT_TRUE(refuses(two, "class one {}\n", "two.js: declares one, as a module before it does"));
    EXPECT_TRUE(refuses(two, "const [a, b] = [1, 2];\n",
                        "two.js: declares several names at once: const [a, b] = [1, 2];"));
    EXPECT_TRUE(refuses(u"order.txt"_s, "one.js\n", "order.txt: misses two.js"));
    EXPECT_TRUE(refuses(two, "const a = '</script';\n", "the joined modules: holds </script"));
    EXPECT_TRUE(refuses(u"page.html"_s, "{{title}}\n", "page.html: has no place {{policy}}"));
}

// That what was joined of the page's own modules is a program is for a browser to tell; here that
// nothing in it stands in the way of joining.
TEST_F(JoinModulesTest, joins_those_of_the_page)
{
    const ProgramRun joined =
        run({.arguments = {QStringLiteral(ORR_PAGE_FOLDER), path(u"parts.cpp"_s), u"parts.h"_s,
                           u"page"_s, u"drawing"_s, u"data"_s},
             .command = QStringLiteral(ORR_JOIN_MODULES)});
    EXPECT_TRUE(succeeded(joined)) << joined.errors.toStdString();
}
