#include <gtest/gtest.h>

#include <cctype>
#include <set>
#include <string>
#include <vector>

#include "res/resources.h"

namespace {

using enum ControlKind;

RECT BoxOf(const ControlTemplate& control) {
    return {control.x, control.y, control.x + control.width, control.y + control.height};
}

bool Overlap(const RECT& a, const RECT& b) {
    return a.left < b.right && b.left < a.right && a.top < b.bottom && b.top < a.bottom;
}

bool Holds(const RECT& outer, const RECT& inner) {
    return outer.left <= inner.left && outer.top <= inner.top && outer.right >= inner.right &&
           outer.bottom >= inner.bottom;
}

std::string NameOf(const ControlTemplate& control) {
    return std::to_string(control.id) + " '" + control.caption + "'";
}

class Layout : public testing::TestWithParam<std::size_t> {
protected:
    const DialogTemplate& dialog = OrbixResources().dialogs[GetParam()];
};

TEST_P(Layout, NothingIsCutOrCoversAnother) {
    const RECT window{0, 0, dialog.width, dialog.height};
    std::vector<const ControlTemplate*> visible;
    for (const ControlTemplate& control : dialog.controls) {
        if ((control.flags & kHidden) == 0) {
            visible.push_back(&control);
        }
    }
    for (std::size_t i = 0; i < visible.size(); ++i) {
        const RECT a = BoxOf(*visible[i]);
        EXPECT_TRUE(Holds(window, a)) << NameOf(*visible[i]);
        for (std::size_t j = i + 1; j < visible.size(); ++j) {
            const RECT b = BoxOf(*visible[j]);
            const bool framed = (visible[i]->kind == groupBox && Holds(a, b)) ||
                                (visible[j]->kind == groupBox && Holds(b, a));
            EXPECT_TRUE(framed || !Overlap(a, b)) << NameOf(*visible[i]) << NameOf(*visible[j]);
        }
    }
}

TEST_P(Layout, EveryControlCanBeReachedAndNamed) {
    std::set<int> ids;
    const ControlTemplate* before = nullptr;
    for (const ControlTemplate& control : dialog.controls) {
        EXPECT_TRUE(control.id == kNoId || ids.insert(control.id).second) << NameOf(control);
        const bool acts = control.kind != groupBox && control.kind != staticText;
        const bool named = control.accessibleName != nullptr || *control.caption != '\0';
        EXPECT_TRUE(named || !acts) << NameOf(control);
        if (control.kind == spin) {
            ASSERT_NE(before, nullptr);
            EXPECT_EQ(before->kind, edit) << NameOf(control);
        }
        before = &control;
    }
}

INSTANTIATE_TEST_SUITE_P(Templates, Layout,
                         testing::Range<std::size_t>(0, OrbixResources().dialogs.size()));

// The editor shows one of the pages at a time.
TEST(EditorTemplate, UsesNoAccessKeyTwice) {
    for (const DialogTemplate* page : {&kSphericalPageTemplate, &kCartesianPageTemplate}) {
        std::set<int> letters;
        for (const DialogTemplate* dialog : {&kMainDialogTemplate, page}) {
            for (const ControlTemplate& control : dialog->controls) {
                const std::string caption = control.caption;
                const std::size_t mark = caption.find('&');
                EXPECT_TRUE(mark == std::string::npos ||
                            letters.insert(std::toupper(caption.at(mark + 1))).second)
                    << NameOf(control);
            }
        }
    }
}

TEST(EditorTemplate, GivesThePagesTheirRoom) {
    for (const ControlTemplate& control : kMainDialogTemplate.controls) {
        const RECT room = MapDialogRect(0, 0, control.width, control.height);
        for (const DialogTemplate* page : {&kSphericalPageTemplate, &kCartesianPageTemplate}) {
            const RECT needed = MapDialogRect(0, 0, page->width, page->height);
            EXPECT_TRUE(control.kind != tab ||
                        (room.right - 6 >= needed.right && room.bottom - 29 >= needed.bottom))
                << page->id;
        }
    }
}

}  // namespace
