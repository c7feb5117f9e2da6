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

const ControlTemplate& ControlWithId(const DialogTemplate& dialog, int id) {
    for (const ControlTemplate& control : dialog.controls) {
        if (control.id == id) {
            return control;
        }
    }
    throw std::out_of_range("no control " + std::to_string(id));
}

// By dialog number.
class Layout : public testing::TestWithParam<UINT> {
protected:
    const DialogTemplate& Dialog() const {
        for (const DialogTemplate& dialog : OrbixResources().dialogs) {
            if (dialog.id == GetParam()) {
                return dialog;
            }
        }
        throw std::out_of_range("no such dialog");
    }
};

TEST_P(Layout, NothingIsCutOrCoversAnother) {
    const DialogTemplate& dialog = Dialog();
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
    for (const ControlTemplate& control : Dialog().controls) {
        EXPECT_TRUE(control.id == -1 || ids.insert(control.id).second) << NameOf(control);
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

INSTANTIATE_TEST_SUITE_P(Templates, Layout, testing::Values(4000U, 4007U, 4008U, 4100U));

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

TEST(EditorTemplate, GivesPlanesListAndPagesTheirRoom) {
    EXPECT_EQ(MapDialogRect(0, 0, kMainDialogTemplate.width, kMainDialogTemplate.height),
              (RECT{0, 0, 659, 583}));
    EXPECT_EQ(BoxOf(ControlWithId(kMainDialogTemplate, 1018)), (RECT{271, 3, 436, 156}));
    EXPECT_EQ(BoxOf(ControlWithId(kMainDialogTemplate, 1002)), (RECT{271, 158, 436, 311}));
    const auto pixels = [](int id) {
        const ControlTemplate& control = ControlWithId(kMainDialogTemplate, id);
        return MapDialogRect(control.x, control.y, control.width, control.height);
    };
    const int columns = 30 + 55 + 45 + 40 + 40 + 30 + 50 + 45 + 45;
    const int scrollBarAndEdges = 19;
    EXPECT_GE(Width(pixels(4020)), columns + scrollBarAndEdges);
    for (const DialogTemplate* page : {&kSphericalPageTemplate, &kCartesianPageTemplate}) {
        const RECT needed = MapDialogRect(0, 0, page->width, page->height);
        EXPECT_GE(Width(pixels(4059)) - 6, needed.right) << page->id;
        EXPECT_GE(Height(pixels(4059)) - 29, needed.bottom) << page->id;
    }
}

}  // namespace
