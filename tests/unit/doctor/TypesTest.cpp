/// The runtime's type codes, as the doctor compares them.
#include "doctor/Types.h"

#include <gtest/gtest.h>

namespace panotra::doctor {
namespace {

TEST(TypeCodes, LoseWhatMakesNoDifferenceToACall)
{
    EXPECT_EQ(essenceOfType("v32@0:8q16@24"), "v@:q@");
    EXPECT_EQ(essenceOfType("Vv24@0:8r^f16"), "v@:^f");
    EXPECT_EQ(essenceOfType("@\"NSString\"16@0:8"), "@@:");
    EXPECT_EQ(essenceOfType("{CGRect={CGPoint=dd}{CGSize=dd}}16@0:8"), "{{dd}{dd}}@:");
    EXPECT_EQ(essenceOfType("c16@0:8C20"), "B@:B");
    EXPECT_EQ(essenceOfType("B44@0:8@16q24@?32"), "B@:@q@?");
    EXPECT_EQ(essenceOfType(""), "");
}

TEST(TypeCodes, ThatAreCutOffEndWhereTheyDo)
{
    EXPECT_EQ(essenceOfType("@\"NSStr"), "@");
    EXPECT_EQ(essenceOfType("v@:{CGRect"), "v@:{");
    EXPECT_EQ(essenceOfType("{CGRect}@:"), "{}@:");
    EXPECT_FALSE(isTypeServed("v@:{CGRect=dd}", "v@:{CGRect"));
    EXPECT_FALSE(isTypeServed("v@:", ""));
}

TEST(TypeCodes, OfTheSameValuesServe)
{
    EXPECT_TRUE(isTypeServed("v@:if", "v24@0:8i16f20"));
    EXPECT_TRUE(isTypeServed("v@:{CGRect={CGPoint=dd}{CGSize=dd}}", "v48@0:8{Frame=dddd}16"));
    EXPECT_TRUE(isTypeServed("i", "i"));
}

TEST(TypeCodes, OfAddressesOfAnyKindServeOneAnother)
{
    EXPECT_TRUE(isTypeServed("v@:@", "v24@0:8^v16"));
    EXPECT_TRUE(isTypeServed("B@:@q@?", "B40@0:8^{Sound=iQ}16q24@32"));
    EXPECT_FALSE(isTypeServed("v@:@", "v24@0:8q16"));
}

TEST(TypeCodes, OfOtherWidthsSignsAndCountsDoNotServe)
{
    EXPECT_FALSE(isTypeServed("v@:qf", "v24@0:8i16f20"));
    EXPECT_FALSE(isTypeServed("i", "Q"));
    EXPECT_FALSE(isTypeServed("v@:f", "v24@0:8d16"));
    EXPECT_FALSE(isTypeServed("v@:f", "v28@0:8f16@20"));
    EXPECT_FALSE(isTypeServed("v@:f@", "v20@0:8f16"));
    EXPECT_FALSE(isTypeServed("v@:{CGRect=dddd}", "v@:{CGPoint=dd}"));
}

TEST(TypeCodes, OfAnAnswerThatNobodyLooksAtServeWhateverItIs)
{
    EXPECT_TRUE(isTypeServed("v@:", "B16@0:8"));
    EXPECT_TRUE(isTypeServed("v@:", "{CGRect=dddd}16@0:8"));
    EXPECT_FALSE(isTypeServed("B@:", "v16@0:8"));
}

} // namespace
} // namespace panotra::doctor
