#include "view/Property.h"

#include <gtest/gtest.h>

#include <string>
#include <string_view>
#include <vector>

using namespace velluto;

namespace {

struct Owner : PropertyOwner {
    std::vector<Aspect> told;
    std::string captionWhenTold;
    Property<std::string> caption{*this, Aspect::Caption, "before"};
    Property<int> value{*this, Aspect::Value};
    void Changed(Aspect aspect) override
    {
        told.push_back(aspect);
        captionWhenTold = caption;
    }
};

} // namespace

TEST(Property, AChangeIsToldInsideTheWrite)
{
    Owner owner;
    owner.caption = std::string("after");
    EXPECT_EQ(owner.told, std::vector<Aspect>{Aspect::Caption});
    EXPECT_EQ(owner.captionWhenTold, "after");
}

TEST(Property, AWriteOfTheSameValueTellsNobody)
{
    Owner owner;
    owner.caption = std::string("before");
    owner.value = 0;
    EXPECT_TRUE(owner.told.empty());
}

TEST(Property, ACopyOfAViewIsToldWhereTheValueChanges)
{
    Owner owner;
    owner.caption.Copy(std::string_view("before"));
    EXPECT_TRUE(owner.told.empty());
    owner.caption.Copy(std::string_view("after"));
    EXPECT_EQ(owner.told, std::vector<Aspect>{Aspect::Caption});
    EXPECT_EQ(owner.captionWhenTold, "after");
}

TEST(Property, AssigningOnePropertyToAnotherCopiesTheValueOnly)
{
    Owner first;
    Owner second;
    first.value = 7;
    second.value = first.value;
    EXPECT_EQ(second.value.Get(), 7);
    EXPECT_EQ(second.told, std::vector<Aspect>{Aspect::Value});
    EXPECT_EQ(first.told.size(), 1U);
}
