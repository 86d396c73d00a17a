// The commands that begin with "user".
#include "cli/command.h"
#include "cli/user_listing.h"

Commands UserCommands()
{
    return {{"user list",
             "[WORD...]",
             "Lists the users that match, as the find bar of the console finds them.",
             0,
             Command::kAnyNumber,
             {{"accounts", nullptr, "Shows what each has used and has left."}},
             ListUsers}};
}
