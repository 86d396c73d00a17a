// Whoever may only look: every command that changes something is refused, and a trial of it is not.
#include "cli/command.h"
#include "cli/command_line_fixture.h"
#include "cli/work.h"
#include "startup/rights.h"
#include "support/core/fake_service.h"

using namespace Qt::StringLiterals;

namespace {

const char *const kChanging[] = {"user add carl",
                                 "user block anna",
                                 "user delete anna",
                                 "group add Guests",
                                 "limit set anna --traffic 5",
                                 "credit add anna --traffic 5",
                                 "login remove bertie",
                                 "time add anna --day monday --from 8:00 --until 9:00",
                                 "time add --group yard --day monday --from 8:00 --until 9:00",
                                 "time set anna --access allow",
                                 "restriction set anna --select FTP",
                                 "protocol add Gopher 70",
                                 "protocol set FTP --add-port 7070",
                                 "protocol remove FTP",
                                 "range add 10.0.0.0/24",
                                 "exclusion add 10.0.0.1",
                                 "currency add USD",
                                 "purge --keep nothing",
                                 "config set timer 90"};

class LookOnly : public CommandLineFixture
{
protected:
    void SetUp() override
    {
        CommandLineFixture::SetUp();
        ASSERT_TRUE(Settings().CreateKey(ConfigKeyId::LocalIp));
        AddOwners();
        DisconnectDatabase(); // the commands open sessions of their own
    }

    static Command Named(const QStringList &words)
    {
        for (const Command &each : UserCommands() + GroupCommands() + LimitCommands()
                 + CreditCommands() + LoginCommands() + TimeCommands() + RestrictionCommands()
                 + ProtocolCommands() + NetworkCommands() + CurrencyCommands() + PurgeCommands()
                 + ConfigCommands()) {
            const QStringList name = QString::fromLatin1(each.name).split(u' ');
            if (words.first(qMin(words.size(), name.size())) == name) {
                return each;
            }
        }
        ADD_FAILURE() << qPrintable(words.join(u' '));
        return {};
    }

    Or<void> RunLooking(const QStringList &words, bool isTrial)
    {
        const Command command = Named(words);
        QCommandLineParser parser;
        for (const CommandOption &option : command.options) {
            QCommandLineOption added(QString::fromLatin1(option.name));
            added.setValueName(QString::fromLatin1(option.value));
            parser.addOption(added);
        }
        const auto nameLength = QString::fromLatin1(command.name).count(u' ') + 1;
        EXPECT_TRUE(parser.parse(QStringList(u"tollbrook"_s) + words.mid(nameLength)));
        std::FILE *nothing = std::fopen("/dev/null", "r+");
        Terminal terminal(nothing, nothing, nothing);
        Or<void> ended;
        {
            Work work({.start = {.configFolder = folder.path(),
                                 .opensDatabase = false,
                                 .bus = bus.Connection()},
                       .isTrial = isTrial,
                       .isYes = true,
                       .onlyLooks = true},
                      terminal);
            ended = command.run(work, Given(parser));
        }
        std::fclose(nothing);
        return ended;
    }

    [[nodiscard]] QByteArray Files() const
    {
        QByteArray all;
        for (const ConfigKeyId key : {ConfigKeyId::Base, ConfigKeyId::LocalIp}) {
            QFile file(Settings().FileOf(key));
            EXPECT_TRUE(file.open(QIODevice::ReadOnly));
            all += file.readAll();
        }
        return all;
    }

    PrivateBus bus;
    FakeService service {bus};
};
TB_ON_EVERY_ENGINE(LookOnly);

} // namespace

TEST_P(LookOnly, NothingIsChangedButMayBeTried)
{
    const QStringList rows = EveryRow();
    const QByteArray files = Files();
    for (const char *line : kChanging) {
        const QStringList words = QString::fromUtf8(line).split(u' ');
        const auto tried = RunLooking(words, true);
        EXPECT_TRUE(tried) << line << ": " << qPrintable(tried.error().text);
        const auto refused = RunLooking(words, false);
        ASSERT_FALSE(refused) << line;
        EXPECT_EQ(refused.error().status, ExitStatus::Refused) << line;
        EXPECT_EQ(refused.error().text, OnlyLooksText()) << line;
        EXPECT_EQ(EveryRow(), rows) << line;
        EXPECT_EQ(Files(), files) << line;
    }
}
