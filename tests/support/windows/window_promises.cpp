#include "support/windows/window_promises.h"

#include "support/core/database_fixture.h"
#include "support/core/faulty_driver.h"
#include "support/core/scripted_prompt.h"
#include "support/windows/modal.h"
#include "support/windows/widgets.h"

namespace {

constexpr int kMostStatements = 500;

void ExpectOneMessage(ScriptedPrompt &prompt, const QString &words, int refused)
{
    const QStringList said = prompt.TakeSaid();
    EXPECT_EQ(said.size(), 1) << "statement " << refused << ": " << qPrintable(said.join(u" / "));
    EXPECT_TRUE(said.value(0).startsWith(words))
        << "statement " << refused << ": " << qPrintable(said.value(0));
}

} // namespace

void ExpectOpensOrTells(const QString &dsn,
                        ScriptedPrompt &prompt,
                        const std::function<void()> &open,
                        const QString &words)
{
    ClosedDialogs closed;
    FaultyDriver driver(dsn);
    int refused = 0;
    int opened = 0;
    while (opened == 0 && refused < kMostStatements) {
        (void)driver.Take();
        driver.Refuse(++refused);
        open();
        opened = closed.Take();
        if (opened == 0) {
            ExpectOneMessage(prompt, words, refused);
        }
    }
    EXPECT_EQ(opened, 1);
    EXPECT_EQ(prompt.TakeSaid(), QStringList());
    EXPECT_EQ(driver.Take().size(), refused - 1) << "each of its statements was refused once";
}

void ExpectStoresOrKeeps(const QString &dsn,
                         ScriptedPrompt &prompt,
                         QWidget &window,
                         const QString &words,
                         const std::function<void()> &expectKept)
{
    const QStringList before = EveryRow();
    FaultyDriver driver(dsn);
    int refused = 0;
    while (window.isVisible() && refused < kMostStatements) {
        (void)driver.Take();
        driver.Refuse(++refused);
        Click(window, "ok");
        if (window.isVisible()) {
            ExpectOneMessage(prompt, words, refused);
            EXPECT_EQ(EveryRow(), before) << "statement " << refused;
            expectKept();
        }
    }
    EXPECT_EQ(prompt.TakeSaid(), QStringList());
    EXPECT_EQ(driver.Take().size(), refused - 1) << "each of its statements was refused once";
}
