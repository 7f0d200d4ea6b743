// examples/draw_all draws everything, and writes a page that shows it.
#include "docs/doc_samples.h"
#include "driver/program_run.h"
#include "support/corpus.h"
#include "support/golden.h"

#include <QDir>
#include <QFileInfo>
#include <QRegularExpression>
#include <QSet>
#include <QXmlStreamReader>

using namespace Qt::StringLiterals;

namespace {

// What a reader of the page sees.
struct Gallery
{
    QStringList links; // of elements a and img, in their order
    QSet<QString> ids;
    QSet<QString> elements;
    QStringList codes; // the texts of elements pre
    QString fault;
};

// As XML, whose readers forgive nothing.
Gallery readGallery(const QByteArray &page)
{
    Gallery gallery;
    QXmlStreamReader reader(page);
    while (!reader.atEnd()) {
        if (reader.readNext() != QXmlStreamReader::StartElement)
            continue;
        const QString element = reader.name().toString();
        gallery.elements.insert(element);
        const QXmlStreamAttributes attributes = reader.attributes();
        for (const QLatin1StringView name : {"href"_L1, "src"_L1}) {
            if (attributes.hasAttribute(name))
                gallery.links += attributes.value(name).toString();
        }
        if (attributes.hasAttribute("id"_L1)) {
            const QString id = attributes.value("id"_L1).toString();
            EXPECT_FALSE(gallery.ids.contains(id)) << id.toStdString();
            gallery.ids.insert(id);
        }
        if (element == "pre"_L1)
            gallery.codes += reader.readElementText();
    }
    gallery.fault = reader.errorString();
    return gallery;
}

class GalleryTest : public ProgramTest
{
protected:
    ProgramRun drawAll(const QString &script, const QString &companion) const
    {
        return run(
            {.arguments = {script, QStringLiteral(ORR_LAYOUT_PROGRAM), companion, path(u"out"_s)},
             .command = u"sh"_s});
    }

    // The folder of the test as that of the project, with the programs in the path.
    ProgramRun shell(const QString &lines) const
    {
        return run({.arguments = {u"-e"_s, u"-c"_s, u"PATH=$PWD/bin:$PATH\n"_s + lines},
                    .command = u"sh"_s});
    }

    void link(const QString &file, const QString &name) const
    {
        ASSERT_TRUE(QDir().mkpath(QFileInfo(path(name)).path()));
        ASSERT_TRUE(QFile::link(file, path(name))) << name.toStdString();
    }
};

// The commands that make a drawing.
QString commandsOf(const Gallery &gallery, const QString &drawing)
{
    for (const QString &code : gallery.codes) {
        if (code.contains(u" -o out/%1.svg\n"_s.arg(drawing)))
            return code;
    }
    return {};
}

} // namespace

TEST_F(GalleryTest, shows_every_example_with_input_commands_and_formats)
{
    const ProgramRun made =
        drawAll(projectPath(u"examples/draw_all"_s), QStringLiteral(ORR_PROGRAM));
    ASSERT_EQ(made.status, 0) << made.errors.toStdString();
    // One input has what is invisible, which is told once.
    EXPECT_EQ(made.errors.count('\n'), 1) << made.errors.toStdString();
    EXPECT_TRUE(made.errors.contains("what is invisible is left out"));
    EXPECT_TRUE(made.output.endsWith(
        "out/index.html in a browser: all drawings with their inputs and commands.\n"));
    const QByteArray page = fileContent(u"out/index.html"_s);
    const Gallery gallery = readGallery(page);
    EXPECT_EQ(gallery.fault, u""_s);

    QSet<QString> linked;
    for (const QString &link : gallery.links) {
        if (link.startsWith(u'#')) {
            EXPECT_TRUE(gallery.ids.contains(link.sliced(1))) << link.toStdString();
            continue;
        }
        linked.insert(link);
        EXPECT_FALSE(link.contains(u'/')) << "beside the page: " << link.toStdString();
        EXPECT_GT(QFileInfo(path(u"out/"_s + link)).size(), 0) << link.toStdString();
    }
    linked.insert(u"index.html"_s);
    const QStringList files = QDir(path(u"out"_s)).entryList(QDir::Files);
    EXPECT_EQ(linked, QSet<QString>(files.begin(), files.end())) << "every file has its link";

    for (const CorpusInput &input : exampleInputs()) {
        const QString drawing = u"%1-%2"_s.arg(input.engine(), input.name());
        for (const QString &suffix : {u"svg"_s, u"png"_s, u"jpg"_s, u"xdot"_s, u"vsdx"_s, u"vdx"_s})
            EXPECT_TRUE(linked.contains(drawing + u'.' + suffix)) << drawing.toStdString();
        EXPECT_TRUE(gallery.codes.contains(QString::fromUtf8(input.text())))
            << drawing.toStdString();
        EXPECT_NE(commandsOf(gallery, drawing), u""_s) << drawing.toStdString();
    }
    EXPECT_FALSE(gallery.elements.contains(u"script"_s));
    EXPECT_EQ(page.count("//"), 1) << "nothing from elsewhere but the name of the language";
    EXPECT_TRUE(page.contains("prefers-color-scheme: dark"));

    // From the folder of the project the commands make the files that the page has.
    ASSERT_TRUE(QDir(path(u"."_s)).rename(u"out"_s, u"shown"_s));
    ASSERT_TRUE(QDir(path(u"."_s)).mkdir(u"out"_s));
    link(QStringLiteral(ORR_LAYOUT_PROGRAM), u"bin/orrlayout"_s);
    link(QStringLiteral(ORR_PROGRAM), u"bin/orr"_s);
    link(projectPath(u"examples"_s), u"examples"_s);
    link(projectPath(u"tests"_s), u"tests"_s);
    const ProgramRun again = shell(commandsOf(gallery, u"umlseq-login"_s) + u'\n'
                                   + commandsOf(gallery, u"import-csv"_s));
    EXPECT_TRUE(succeeded(again));
    const QStringList remade = QDir(path(u"out"_s)).entryList(QDir::Files);
    EXPECT_EQ(remade.size(), 14);
    for (const QString &file : remade)
        EXPECT_EQ(fileContent(u"out/"_s + file), fileContent(u"shown/"_s + file));
}

// A project with one example; what imports are made of is not there.
TEST_F(GalleryTest, escapes_what_it_shows_and_tells_that_a_drawing_failed)
{
    const QByteArray text = "digraph { a [area=1 label=\"</pre><script>&amp;\x01\"]; }\n";
    link(projectPath(u"examples/draw_all"_s), u"project/examples/draw_all"_s);
    link(projectPath(u"examples/gallery.sh"_s), u"project/examples/gallery.sh"_s);
    ASSERT_TRUE(QDir(path(u"project/examples"_s)).mkdir(u"treemap"_s));
    writeFile(u"project/examples/treemap/a.dot"_s, text);
    const ProgramRun made = drawAll(path(u"project/examples/draw_all"_s), u"false"_s);
    EXPECT_EQ(made.status, 1);
    const Gallery gallery = readGallery(fileContent(u"out/index.html"_s));
    EXPECT_EQ(gallery.fault, u""_s);
    EXPECT_TRUE(gallery.codes.contains(QString::fromUtf8(text).remove(QChar(1))));
    EXPECT_FALSE(gallery.elements.contains(u"script"_s));
}
