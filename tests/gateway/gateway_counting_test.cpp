#include "gateway/table_fixture.h"

using namespace Qt::StringLiterals;

class Counting : public TableTest
{ };

TEST_F(Counting, EveryDatagramCountsWithItsHeaders)
{
    AddClient(1, {kHere, kHere6});
    const Began began = Begin();
    EXPECT_FALSE(began.takenOver);
    EXPECT_EQ(Send(kHere, kThere, 100, 10), 10);
    EXPECT_EQ(Receive(kHere, kThere, 1000, 7), 7);
    EXPECT_EQ(Send(kHere6, kThere6, 10, 3), 3);
    EXPECT_EQ(Receive(kHere6, kThere6, 1200, 4), 4);
    EXPECT_EQ(Counted(kHere),
              (AddressReading {Address(kHere), Ipv4Bytes(1000, 7), Ipv4Bytes(100, 10)}));
    EXPECT_EQ(Counted(kHere6),
              (AddressReading {Address(kHere6), Ipv6Bytes(1200, 4), Ipv6Bytes(10, 3)}));
}
