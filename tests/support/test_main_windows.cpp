#include "app/administrator_app.h"

#include <gmock/gmock.h>

int main(int argc, char **argv)
{
    testing::InitGoogleMock(&argc, argv);
    qputenv("QT_QPA_PLATFORM", "offscreen");
    qputenv("CUPS_SERVER", "/nowhere"); // no printer, whatever the machine has
    const CAdministratorApp application(argc, argv);
    return RUN_ALL_TESTS();
}
