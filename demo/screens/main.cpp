// tollbrook-screens: draws the console's windows into PNG files, for the documentation and for a
// machine without a display.
#include "accounts/currency.h"
#include "admin/adapters.h"
#include "app/administrator_app.h"
#include "demo/screens/studio.h"
#include "ui/common/message_box_prompt.h"
#include "ui/main/splitter_frame.h"

#include <QCommandLineParser>
#include <QLibraryInfo>
#include <QLoggingCategory>
#include <QStyleFactory>
#include <QTranslator>

#include <cstdio>

using namespace Qt::StringLiterals;

namespace {

const QString kPseudo = u"pseudo"_s; // the language of tools/pseudo_locale.py

constexpr QSize kFrameSize(1100, 700);
constexpr QSize kSmallScreen(1024, 600 - 30); // its title bar aside

// The scale has to be known before the toolkit starts.
void TakeScale(int argc, char **argv)
{
    for (int i = 1; i + 1 < argc; ++i) {
        if (qstrcmp(argv[i], "--scale") == 0) {
            qputenv("QT_SCALE_FACTOR", argv[i + 1]);
        }
    }
}

QPalette DarkPalette()
{
    QPalette palette(QColor(0x35, 0x35, 0x35), QColor(0x2d, 0x2d, 0x2d));
    palette.setColor(QPalette::Base, QColor(0x23, 0x23, 0x23));
    palette.setColor(QPalette::AlternateBase, QColor(0x2b, 0x2b, 0x2b));
    palette.setColor(QPalette::Highlight, QColor(0x2a, 0x82, 0xda));
    palette.setColor(QPalette::HighlightedText, Qt::white);
    palette.setColor(QPalette::Link, QColor(0x6a, 0xb0, 0xf3));
    return palette;
}

void ReadCommandLine(QCommandLineParser &parser)
{
    parser.setApplicationDescription(u"Draws the console's windows into PNG files."_s);
    parser.addHelpOption();
    parser.addOptions({
        {u"config"_s, u"The configuration folder."_s, u"DIR"_s},
        {u"out"_s, u"The folder that the files go to."_s, u"DIR"_s, u"."_s},
        {u"dark"_s, u"In a dark palette."_s},
        {u"scale"_s, u"Pixels of the picture for each pixel of a window."_s, u"factor"_s, u"1"_s},
        {u"small"_s, u"On a screen of 1024 by 600."_s},
        {u"language"_s, u"In this language, as in de; pseudo looks at the texts."_s, u"name"_s},
        {u"only"_s, u"Draws this window only; may be repeated."_s, u"name"_s},
    });
    parser.process(*QCoreApplication::instance());
}

// The texts that no language changes.
QSet<QString> NamesOfDemonstration(const AppServices &services)
{
    QSet<QString> names {CurrentCurrency(services.settings).name};
    for (const Adapter &adapter : SystemAdapters()) {
        names << adapter.description;
    }
    for (const char *sqlText : {"SELECT username FROM users",
                                "SELECT name FROM groups",
                                "SELECT proto_name FROM protocols"}) {
        const auto read = [sqlText] {
            return ReadAll(sqlText, [](const Row &row) { return row.Text(1); });
        };
        if (const auto found = Await(services, nullptr, u"Reading the names..."_s, read)) {
            names.unite({found->begin(), found->end()});
        }
    }
    return names;
}

// The toolkit's own texts, whose translations are not ours: in brackets they count as translated.
class ToolkitsPseudoTexts : public QTranslator
{
public:
    using QTranslator::QTranslator;

    bool isEmpty() const override { return false; }

    QString translate(const char *context,
                      const char *sourceText,
                      const char * /*disambiguation*/,
                      int /*n*/) const override
    {
        const bool isToolkits = context[0] == 'Q' && QChar::isUpper(static_cast<uchar>(context[1]));
        return isToolkits ? u'[' + QString::fromUtf8(sourceText) + u']' : QString();
    }
};

void Speak(const QString &language)
{
    if (language == kPseudo) {
        QCoreApplication::installTranslator(new ToolkitsPseudoTexts(QCoreApplication::instance()));
    }
    QLocale::setDefault(QLocale(language));
    const QDir programs(QCoreApplication::applicationDirPath());
    const std::pair<QString, QString> sources[] = {
        {u"qtbase_"_s, QLibraryInfo::path(QLibraryInfo::TranslationsPath)},
        {u"tollbrook_"_s, programs.filePath(u"../share/tollbrook/translations"_s)}};
    for (const auto &[name, folder] : sources) {
        auto *translator = new QTranslator(QCoreApplication::instance());
        if (translator->load(name + language, folder)) {
            QCoreApplication::installTranslator(translator);
        }
    }
}

int DrawAll(CSplitterFrame &frame, const AppServices &services, const QCommandLineParser &parser)
{
    Studio studio(frame, services, QDir(parser.value(u"out"_s)), parser.values(u"only"_s));
    if (parser.value(u"language"_s) == kPseudo) {
        studio.CheckTexts(NamesOfDemonstration(services));
    }
    for (const auto draw : {DrawMainWindow,
                            DrawProperties,
                            DrawAccounts,
                            DrawAdministration,
                            DrawExchange,
                            DrawOptions,
                            DrawReports,
                            DrawService}) {
        draw(studio);
    }
    return studio.Failures();
}

} // namespace

int main(int argc, char **argv)
{
    TakeScale(argc, argv);
    if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORM")) {
        qputenv("QT_QPA_PLATFORM", "offscreen");
    }
    // Offscreen windows lack a few things, and a statement fails to be drawn: nobody need read of it.
    QLoggingCategory::setFilterRules(u"default.warning=false\ntollbrook.db.warning=false"_s);
    CAdministratorApp app(argc, argv);
    QCommandLineParser parser;
    ReadCommandLine(parser);
    QApplication::setStyle(QStyleFactory::create(u"Fusion"_s));
    QApplication::setFont(QFont(u"DejaVu Sans"_s, 10));
    if (parser.isSet(u"dark"_s)) {
        QApplication::setPalette(DarkPalette());
    }

    if (parser.isSet(u"language"_s)) {
        Speak(parser.value(u"language"_s));
    }

    MessageBoxPrompt prompt;
    std::unique_ptr<CSplitterFrame> frame;
    const StartUpOptions options {.configFolder = parser.value(u"config"_s),
                                  .bus = QDBusConnection::sessionBus()};
    const auto show = [&] {
        frame = std::make_unique<CSplitterFrame>(app.Services(), StandardDialogs(app.Services()));
        frame->resize(parser.isSet(u"small"_s) ? kSmallScreen : kFrameSize);
        frame->show();
        return true;
    };
    const auto begin = [&] {
        frame->FirstStart({.running = app.IsServiceRunning(), .connected = app.IsConnected()});
        while (app.Services().database.IsBusy()) {
            QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
        }
    };
    app.SetUp(options, prompt, {.show = show, .begin = begin});
    return app.InitInstance() && DrawAll(*frame, app.Services(), parser) == 0 ? EXIT_SUCCESS
                                                                              : EXIT_FAILURE;
}
