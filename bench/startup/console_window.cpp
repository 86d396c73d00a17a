// The console as it starts, until its window is on the screen and its database open: argument 1 is its
// configuration folder.
#include "app/administrator_app.h"
#include "startup/first_paint.h"
#include "ui/common/message_box_prompt.h"
#include "ui/main/splitter_frame.h"

using namespace Qt::StringLiterals;

int main(int argc, char **argv)
{
    CAdministratorApp app(argc, argv);
    MessageBoxPrompt prompt;
    std::unique_ptr<CSplitterFrame> frame;
    std::unique_ptr<QuitAfterPaint> watch;
    const auto show = [&] {
        frame = std::make_unique<CSplitterFrame>(app.Services(), StandardDialogs(app.Services()));
        watch = std::make_unique<QuitAfterPaint>(*frame);
        watch->Hold();
        frame->show();
        return true;
    };
    app.SetUp({.configFolder = QString::fromLocal8Bit(argv[1])},
              prompt,
              {.show = show, .begin = [&] { watch->LetGo(); }});
    return app.InitInstance() ? QApplication::exec() : EXIT_FAILURE;
}
