#include "admin/save_steps.h"

#include "admin/local_addresses.h"
#include "admin/protocol_storage.h"
#include "base/names_line.h"

#include <QCoreApplication>

#include <algorithm>
#include <memory>

using namespace Qt::StringLiterals;

namespace {

struct Words
{
    Q_DECLARE_TR_FUNCTIONS(SaveSteps)
};

} // namespace

SaveSteps::SaveSteps(const ConfigStore &configStore, const Answers &givenAnswers)
    : store(configStore)
    , answers(givenAnswers)
{ }

void SaveSteps::AskOnExclusions(const QList<Ipv4> &base, const QList<Ipv4> &draft)
{
    for (const Ipv4 address : ExclusionsToWrite(base, draft)) {
        const auto users = UsersOf(address);
        if (!users) {
            NoteUnread(address, users.error());
        } else if (!users->empty()) {
            AskOnUsers(address, *users);
        }
    }
}

void SaveSteps::AskOnUsers(Ipv4 address, const std::vector<UserId> &users)
{
    Question question = QuestionOnUsersOf(address, users);
    if (answers.contains(question.key)) {
        if (answers.value(question.key)) {
            withUsersToRemove << address;
        }
        return;
    }
    const auto names = NamesOf(users);
    if (!names) {
        NoteUnread(address, names.error());
        return;
    }
    question.goes = NamesLine(*names);
    report.questions << question;
}

void SaveSteps::NoteUnread(Ipv4 address, const Failure &failure)
{
    lookups.statements << failure;
    lookups.leftOut << Words::tr("Whether a user has the excluded address %1 is not known.")
                           .arg(DottedText(address));
}

// Exclusions that were not touched stay as they stand now.
QList<Ipv4> SaveSteps::ExclusionsToWrite(const QList<Ipv4> &base, const QList<Ipv4> &draft) const
{
    const auto localIp = store.ReadKey(ConfigKeyId::LocalIp);
    return draft == base && localIp ? LoadExclusions(*localIp, kMaxExclusions)
                                    : draft.first(std::min(draft.size(), kMaxExclusions));
}

void SaveSteps::AskOnDenials(const std::optional<ProtocolTable> &protocols)
{
    if (!protocols) {
        return;
    }
    // What cannot be read here is read again by the save itself, which tells the failure.
    for (const Question &question : QuestionsOnDenials(*protocols).value_or(QList<Question>())) {
        if (!answers.contains(question.key)) {
            report.questions << question;
        } else if (!answers.value(question.key)) {
            report.isDeclined = true;
        }
    }
}

bool SaveSteps::MayWrite() const
{
    return report.questions.isEmpty() && !report.isDeclined;
}

void SaveSteps::Edit(const char *what,
                     ConfigKeyId key,
                     const std::function<void(KeyEditor &)> &edit)
{
    report.Add(what, store.Edit(key, edit));
}

// What could not be read was shown as missing: what is written in its place would be the loss of it.
SettingsResult SaveSteps::EditAddresses(const char *what,
                                        const std::function<void(KeyEditor &)> &edit)
{
    const auto read = ReadAddresses(store);
    const SettingsResult written = read ? store.Edit(ConfigKeyId::LocalIp, edit)
                                        : SettingsResult(tl::unexpected(read.error()));
    report.Add(what, written);
    return written;
}

void SaveSteps::SaveNetwork(const Edited<QList<AddressRange>> &ranges,
                            const Edited<QList<Ipv4>> &exclusions)
{
    EditAddresses(settings_names::kRanges,
                  [&ranges](KeyEditor &key) { SaveRanges(key, ranges.base, ranges.draft); });
    const auto excluded = EditAddresses(settings_names::kExclusions, [&exclusions](KeyEditor &key) {
        SaveExclusions(key, exclusions.base, exclusions.draft);
    });
    // Users go last: for an address that is not excluded nobody does.
    if (excluded) {
        report.Add(ActionId::ExcludeAddress,
                   RunAction(ExcludeAddressAction(withUsersToRemove), answers, nullptr));
    } else if (!withUsersToRemove.isEmpty()) {
        report.leftOut << Words::tr(
            "The users of excluded addresses were not removed, since the addresses cannot be "
            "written either.");
    }
}

void SaveSteps::SaveProtocols(const std::optional<ProtocolTable> &protocols)
{
    if (!protocols) {
        return;
    }
    const auto leftOut = std::make_shared<QStringList>();
    report.Add(ActionId::SaveProtocols,
               RunAction(SaveProtocolsAction(*protocols, leftOut), answers, nullptr));
    report.leftOut += *leftOut;
}

void SaveSteps::SaveWizardProtocols(const std::optional<ProtocolTable> &protocols)
{
    if (!protocols) {
        return;
    }
    for (const auto &[name, action] : SaveWizardProtocolActions(*protocols)) {
        const Outcome outcome = RunAction(action, answers, nullptr);
        report.Add(ActionId::SaveSetupProtocols, outcome);
        if (outcome.state == Outcome::State::NotDone) {
            report.leftOut
                << Words::tr("The protocol %1 and its ports stay as they were.").arg(name);
        }
    }
}

SaveReport SaveSteps::Report() const
{
    SaveReport all = report;
    if (MayWrite()) {
        all.leftOut = lookups.leftOut + all.leftOut;
        all.statements = lookups.statements + all.statements;
    }
    return all;
}
