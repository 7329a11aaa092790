// The view's list of backgrounds.
#include "tests/ui/aoi_window.h"

using namespace KvN;
using kv::test::AOIWindow;
using kv::test::Grey;

namespace
{
class AOIViewList : public ::testing::Test
{
protected:
    AOIViewList()
    {
        for (auto& aoi : aois)
            aoi = Grey(4, 4, 0);
    }
    // Positions of the entries in `aois`; '-' for null.
    std::string Entries() const
    {
        std::string text;
        for (long i = 0; i < static_cast<long>(aoiWindow.View().GetAOICount()); ++i)
        {
            const KvAOI* entry = aoiWindow.View().GetAt(i);
            const auto found =
                std::find_if(std::begin(aois), std::end(aois), [&](auto& a) { return a.get() == entry; });
            text += found == std::end(aois) ? '-' : static_cast<char>('0' + (found - std::begin(aois)));
        }
        return text;
    }

    std::unique_ptr<KvBufferAOI8> aois[6];
    AOIWindow aoiWindow;
};
} // namespace

TEST_F(AOIViewList, AddsAtTheEndWithoutLookingForDuplicates)
{
    KvAOIBaseViewWnd& view = aoiWindow.View();
    view.AddAOI(aois[0].get());
    view.AddAOI(aois[1].get());
    view.AddAOI(aois[0].get());
    EXPECT_EQ(Entries(), "010");
}

TEST_F(AOIViewList, InsertsAndAppends)
{
    KvAOIBaseViewWnd& view = aoiWindow.View();
    for (int i = 0; i < 5; ++i)
        EXPECT_EQ(view.InsertAOI(aois[i].get(), 0), 1);
    EXPECT_EQ(Entries(), "43210");
    EXPECT_EQ(view.InsertAOI(aois[5].get(), 5), 1);
    EXPECT_EQ(Entries(), "432105");
    EXPECT_EQ(view.InsertAOI(aois[5].get(), 2), 1);
    EXPECT_EQ(Entries(), "4352105");
}

TEST_F(AOIViewList, ARefusedIndexGrowsTheListAllTheSame)
{
    KvAOIBaseViewWnd& view = aoiWindow.View();
    for (int i = 0; i < 5; ++i)
        view.AddAOI(aois[i].get());
    EXPECT_EQ(view.InsertAOI(aois[5].get(), 6), 0);
    EXPECT_EQ(view.GetAOICount(), 6u);
    EXPECT_EQ(Entries().substr(0, 5), "01234");
    EXPECT_EQ(view.InsertAOI(aois[5].get(), -1), 0);
    EXPECT_EQ(view.GetAOICount(), 7u);
}

TEST_F(AOIViewList, DeletesWithoutTouchingWhatIsShown)
{
    KvAOIBaseViewWnd& view = aoiWindow.View();
    for (int i = 0; i < 3; ++i)
        view.AddAOI(aois[i].get());
    view.SetAOI(aois[1].get());
    view.DeleteAOI(1);
    EXPECT_EQ(Entries(), "02");
    EXPECT_EQ(view.GetAOI(), aois[1].get());
    view.DeleteAOI(2);
    view.DeleteAOI(-1);
    EXPECT_EQ(Entries(), "02");
}

TEST_F(AOIViewList, AnIndexOutsideGivesNull)
{
    KvAOIBaseViewWnd& view = aoiWindow.View();
    EXPECT_EQ(view.GetAt(0), nullptr);
    view.AddAOI(aois[0].get());
    EXPECT_EQ(view.GetAt(-1), nullptr);
    EXPECT_EQ(view.GetAt(1), nullptr);
}

TEST_F(AOIViewList, TakesACopyOfAGivenList)
{
    KvAOIBaseViewWnd& view = aoiWindow.View();
    KvTMem<KvAOI*> list(2);
    list[0] = aois[3].get();
    list[1] = aois[4].get();
    view.SetAOIList(&list);
    list[0] = nullptr;
    EXPECT_EQ(Entries(), "34");
    view.ClearAOIList();
    EXPECT_EQ(Entries(), "");
}
