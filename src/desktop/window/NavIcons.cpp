#include "desktop/window/NavIcons.h"
#include "desktop/controls/LineIcon.h"

namespace vantrel {

namespace {

std::vector<QPolygonF> LinesOf(NavPicture picture)
{
    switch (picture) {
    case NavPicture::Previous:
        return {{{10, 3.5}, {5.5, 8}, {10, 12.5}}};
    case NavPicture::Next:
        return {{{6, 3.5}, {10.5, 8}, {6, 12.5}}};
    case NavPicture::NewPage:
        return {{{9, 13.5}, {3, 13.5}, {3, 2.5}, {9, 2.5}, {12, 5.5}, {12, 7.5}},
                {{9, 2.5}, {9, 5.5}, {12, 5.5}},
                {{12.5, 9.5}, {12.5, 14.5}},
                {{10, 12}, {15, 12}}};
    case NavPicture::DeletePage:
        return {{{9, 13.5}, {3, 13.5}, {3, 2.5}, {9, 2.5}, {12, 5.5}, {12, 7.5}},
                {{9, 2.5}, {9, 5.5}, {12, 5.5}},
                {{10.5, 10}, {14.5, 14}},
                {{14.5, 10}, {10.5, 14}}};
    case NavPicture::Open:
        return {{{2, 12.5}, {2, 3.5}, {6.2, 3.5}, {7.7, 5.5}, {14, 5.5}, {14, 12.5}, {2, 12.5}},
                {{2, 8}, {14, 8}}};
    case NavPicture::Save:
        return {{{2.5, 2.5}, {11, 2.5}, {13.5, 5}, {13.5, 13.5}, {2.5, 13.5}, {2.5, 2.5}},
                {{5, 2.5}, {5, 5.5}, {10, 5.5}, {10, 2.5}},
                {{4.8, 13.5}, {4.8, 9}, {11.2, 9}, {11.2, 13.5}}};
    }
    return {};
}

} // namespace

QIcon NavIcon(NavPicture picture, const QColor& color)
{
    return LineIcon(LinesOf(picture), color);
}

} // namespace vantrel
