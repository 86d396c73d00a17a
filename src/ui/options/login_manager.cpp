#include "ui/options/login_manager.h"

#include "app/answering.h"
#include "app/perform.h"
#include "base/ipv4.h"
#include "base/names_line.h"
#include "ui/common/accessible.h"
#include "ui/common/controls.h"
#include "ui/common/empty_note.h"
#include "ui/common/icons.h"
#include "ui/common/window_memory.h"
#include "ui/options/create_login_dialog.h"

#include <QHeaderView>
#include <QPushButton>
#include <QShortcut>
#include <QSplitter>
#include <QTreeWidget>
#include <QVBoxLayout>

#include <algorithm>
#include <utility>

using namespace Qt::StringLiterals;

namespace {

// What the tree's entries show; a group's entry holds the group's id behind its kind.
enum class Filter { AllGroups, Group, Guest, NoBind };

constexpr int kFilterRole = Qt::UserRole;
constexpr int kGroupRole = Qt::UserRole + 1;
constexpr int kIndexRole = Qt::UserRole;

QTreeWidgetItem *Entry(const QString &text, Filter filter, Picture picture, GroupId groupId = {})
{
    auto *entry = new QTreeWidgetItem({text});
    entry->setIcon(0, IconOf(picture));
    entry->setData(0, kFilterRole, static_cast<int>(filter));
    entry->setData(0, kGroupRole, groupId.value);
    return entry;
}

// A row of the list; the headers sort by names without regard to case and by addresses as numbers.
class LoginRow : public QTreeWidgetItem
{
public:
    using QTreeWidgetItem::QTreeWidgetItem;

    bool operator<(const QTreeWidgetItem &other) const override
    {
        const int column = treeWidget()->sortColumn();
        const auto address = Ipv4From(text(column));
        const auto otherAddress = Ipv4From(other.text(column));
        if (address && otherAddress) {
            return *address < *otherAddress;
        }
        const int order = text(column).compare(other.text(column), Qt::CaseInsensitive);
        return order != 0 ? order < 0 : text(column) < other.text(column);
    }
};

} // namespace

Result<LoginManager::Content> LoginManager::Read()
{
    return LoadLogins().and_then([](LoginTable logins) {
        return LoadLoginGroups().map([&logins](std::vector<LoginGroup> groups) {
            return Content {std::move(logins), std::move(groups)};
        });
    });
}

LoginManager::LoginManager(const AppServices &appServices, Content content, QWidget *parent)
    : Dialog(parent)
    , services(appServices)
    , table(std::move(content.table))
{
    setWindowTitle(tr("Login manager"));
    Build();
    FillTree(content.groups);
    FillList();
}

void LoginManager::Build()
{
    tree = new QTreeWidget;
    SetNames(*tree, u"groups"_s, tr("Groups"));
    tree->setHeaderHidden(true);
    list = new QTreeWidget;
    SetNames(*list, u"logins"_s, tr("Logins"));
    list->setHeaderLabels({tr("Login"), tr("Bind to user"), tr("Bind Address")});
    list->setRootIsDecorated(false);
    list->setAllColumnsShowFocus(true);
    list->setSortingEnabled(true);
    list->sortByColumn(0, Qt::AscendingOrder);
    emptyNote = new EmptyNote(*list);
    auto *panes = new QSplitter;
    panes->addWidget(tree);
    panes->addWidget(list);
    panes->setStretchFactor(1, 1);
    panes->setSizes({190, 480});

    const auto commandButton = [](const QString &text, const char *objectName) {
        auto *button = MakeButton<QPushButton>(text, objectName);
        button->setAutoDefault(false);
        return button;
    };
    auto *create = commandButton(tr("Create..."), "create");
    edit = commandButton(tr("Properties"), "edit");
    remove = commandButton(tr("Remove"), "remove");
    auto *bottom = new QHBoxLayout;
    for (QPushButton *part : {create, edit, remove}) {
        bottom->addWidget(part);
    }
    bottom->addStretch();
    bottom->addWidget(OkAndCancel(*this));
    auto *column = new QVBoxLayout(this);
    column->addWidget(panes);
    column->addLayout(bottom);
    RememberParts(*panes, u"logins"_s);
    RememberSize(*this, u"logins"_s, {720, 440});
    auto *columns = new ColumnMemory(
        *list->header(), u"logins"_s, [](int section) { return QString::number(section); });
    columns->PutUp([this] {
        list->header()->resizeSection(0, 170);
        list->header()->resizeSection(1, 170);
    });

    connect(create, &QPushButton::clicked, this, &LoginManager::Create);
    connect(edit, &QPushButton::clicked, this, &LoginManager::Edit);
    connect(remove, &QPushButton::clicked, this, &LoginManager::Remove);
    connect(tree, &QTreeWidget::currentItemChanged, this, &LoginManager::FillList);
    connect(list, &QTreeWidget::itemSelectionChanged, this, &LoginManager::EnableButtons);
    connect(list, &QTreeWidget::itemDoubleClicked, this, &LoginManager::Edit);
    const auto onKey = [this](Qt::Key key, void (LoginManager::*command)()) {
        connect(new QShortcut(key, list, nullptr, nullptr, Qt::WidgetShortcut),
                &QShortcut::activated,
                this,
                command);
    };
    onKey(Qt::Key_Return, &LoginManager::Edit);
    onKey(Qt::Key_Enter, &LoginManager::Edit);
    onKey(Qt::Key_Delete, &LoginManager::Remove);
}

void LoginManager::FillTree(const std::vector<LoginGroup> &groups)
{
    auto *every = Entry(tr("All groups"), Filter::AllGroups, Picture::Group);
    tree->addTopLevelItem(every);
    for (const LoginGroup &group : groups) {
        every->addChild(Entry(group.name, Filter::Group, Picture::Group, group.groupId));
    }
    tree->addTopLevelItem(Entry(tr("Guest"), Filter::Guest, Picture::User));
    tree->addTopLevelItem(Entry(tr("With no bind"), Filter::NoBind, Picture::User));
    every->setExpanded(true);
    tree->setCurrentItem(every);
}

// The same login stays the current one; where it went, the one in its place.
void LoginManager::FillList()
{
    QTreeWidgetItem *current = list->currentItem();
    const QString name = current == nullptr ? QString() : current->text(0);
    const int place = list->indexOfTopLevelItem(current);
    const bool isChosen = !list->selectedItems().isEmpty();
    list->clear();
    for (size_t index = 0; index < table.Logins().size(); ++index) {
        const Login &login = table.Logins()[index];
        if (!IsShown(login)) {
            continue;
        }
        auto *row = new LoginRow({login.name, login.userName, login.LimitAddress()});
        row->setIcon(0, IconOf(Picture::Logins));
        row->setData(0, kIndexRole, static_cast<qulonglong>(index));
        list->addTopLevelItem(row);
    }
    emptyNote->Say(table.Logins().empty() ? tr("There are no logins yet.")
                                          : tr("None of the logins belongs here."));
    if (isChosen) {
        GoTo(name, place);
    }
    EnableButtons();
}

void LoginManager::GoTo(const QString &name, int place)
{
    const auto found = list->findItems(name, Qt::MatchExactly | Qt::MatchCaseSensitive);
    const int last = list->topLevelItemCount() - 1;
    list->setCurrentItem(found.isEmpty() ? list->topLevelItem(std::min(place, last))
                                         : found.first());
}

bool LoginManager::IsShown(const Login &login) const
{
    const QTreeWidgetItem *entry = tree->currentItem();
    if (entry == nullptr) {
        return true;
    }
    switch (static_cast<Filter>(entry->data(0, kFilterRole).toInt())) {
    case Filter::Group:
        return login.userId.IsSet() && login.groupId.value == entry->data(0, kGroupRole).toUInt();
    case Filter::Guest:
        return login.guest;
    case Filter::NoBind:
        return !login.userId.IsSet();
    case Filter::AllGroups:
        break;
    }
    return true;
}

std::optional<size_t> LoginManager::Selected() const
{
    const auto rows = list->selectedItems();
    if (rows.isEmpty()) {
        return std::nullopt;
    }
    return rows.first()->data(0, kIndexRole).toULongLong();
}

void LoginManager::EnableButtons()
{
    edit->setEnabled(Selected().has_value());
    remove->setEnabled(Selected().has_value());
}

void LoginManager::Create()
{
    if (CreateLoginDialog(services, table, {}, this).exec() == Accepted) {
        FillList();
        GoTo(table.Logins().back().name, -1);
    }
}

void LoginManager::Edit()
{
    const auto index = Selected();
    if (index && CreateLoginDialog(services, table, index, this).exec() == Accepted) {
        FillList();
    }
}

void LoginManager::Remove()
{
    const auto index = Selected();
    if (!index) {
        return;
    }
    const QString name = table.Logins()[*index].name;
    const Question question = RemoveLoginQuestion(name);
    if (services.prompt.AskToDestroy(question.text, question.goes)) {
        table.Remove(*index);
        FillList();
    }
}

void LoginManager::accept()
{
    const LoginChanges changes = table.Changes();
    if (changes.IsEmpty()) {
        QDialog::accept();
        return;
    }
    const LoginSaveReport report = Save(changes);
    table.MarkSaved(report.saved);
    if (report.IsDone()) {
        emit services.news.Stored(report.outcome.serviceTold);
        QDialog::accept();
        return;
    }
    FillList(); // what was saved may show what somebody else changed of it
    services.prompt.Tell(report.InWords(), Prompt::Icon::Error);
}

void LoginManager::reject()
{
    const QStringList unsaved = table.Changes().Names();
    if (unsaved.isEmpty()
        || services.prompt.AskToDestroy(tr("The changes of these logins are not saved. Drop them?"),
                                        NamesLine(unsaved))) {
        QDialog::reject();
    }
}

LoginSaveReport LoginManager::Save(const LoginChanges &changes)
{
    return AwaitAnswered(
        services,
        this,
        tr("Storing the logins..."),
        [&changes](const Answers &answers) {
            return [changes, answers] { return SaveLogins(changes, answers); };
        },
        [](const LoginSaveReport &report) { return OpenQuestions(report.outcome); });
}

void OpenLoginManager(const AppServices &services, QWidget *parent)
{
    auto content =
        Await(services, parent, LoginManager::tr("Reading the logins..."), LoginManager::Read);
    if (!content) {
        TellUnread(services, LoginManager::tr("The logins could not be read."), content.error());
        return;
    }
    LoginManager(services, *std::move(content), parent).exec();
}
