/// Every operation of the seam on null: each is a defined no-operation that answers zero, empty or null, and
/// nothing is asked of the host.
#include "platform/Dispatch.h"
#include "platform/NSBundle.h"
#include "platform/UIBackdropView.h"
#include "platform/UIScreen.h"
#include "tests/seam/NullOperations.h"
#include "tests/unit/simulated/SeamTest.h"

namespace panotra {
namespace {

class NullHandles : public SeamTest, public ::testing::WithParamInterface<std::vector<Operation> (*)()> { };

TEST_P(NullHandles, AnswerNothingAndAskNothingOfTheHost)
{
    const std::size_t objects = device.classes->liveObjects();
    for (const Operation& operation : GetParam()()) {
        EXPECT_TRUE(operation.answersNothing()) << operation.name;
        EXPECT_TRUE(events.empty()) << operation.name;
        EXPECT_EQ(device.classes->liveObjects(), objects) << operation.name;
    }
    EXPECT_EQ(device.runLoop->pendingCount(), 0u);
}

INSTANTIATE_TEST_SUITE_P(EverySeamClass, NullHandles,
    ::testing::Values(operationsOfObjects, operationsOfServices, operationsOfViews, operationsOfTheRuntime));

TEST(WithoutADevice, EveryOperationBehavesAsOnNull)
{
    NSObject left;
    {
        sim::Device device;
        left = UIView::init();
        EXPECT_TRUE(left);
    }
    for (const auto operations :
        { operationsOfObjects, operationsOfServices, operationsOfViews, operationsOfTheRuntime }) {
        for (const Operation& operation : operations())
            EXPECT_TRUE(operation.answersNothing()) << operation.name;
    }
    EXPECT_FALSE(left.respondsToSelector("init"));
    EXPECT_FALSE(UIView::init());
    EXPECT_FALSE(NSString::stringWithUTF8String("text"));
    EXPECT_FALSE(UIScreen::mainScreen());
    EXPECT_FALSE(NSBundle::mainBundle());
    bool ran = false;
    UIView::animateWithDuration(
        0, 0, 0, [&] { ran = true; }, nullptr);
    dispatch_after(0, [&] { ran = true; });
    EXPECT_FALSE(ran);
}

/// Handles of the wrong kind are foreign values too: they are as good as null.
TEST_F(SeamTest, AHandleOnAnObjectOfAnotherKindDoesNothing)
{
    const NSString text = NSString::stringWithUTF8String("no view");
    const auto view = retained<UIBackdropView>(text.get());
    view.setFrame(CGRectMake(1, 2, 3, 4));
    view.setBlurRadius(3);
    EXPECT_EQ(view.frame(), CGRect());
    EXPECT_FALSE(view.contentView());
    EXPECT_FALSE(retained<NSDictionary>(text.get()).objectForKey(NSString::constant("key")));
    EXPECT_TRUE(retained<NSString>(UIView::init().get()).view().empty());
}

} // namespace
} // namespace panotra
