// The shape tables. Each base form is listed once; the segments that mirror
// it are made from it at compile time, x about 48 and y about 82.
#include "qor/controls/digi/DigiShapes.h"

#include <array>
#include <cstddef>

namespace qor::digi_shapes_impl {

template <std::size_t N>
struct Shape {
    std::array<CPoint, N> points;
    std::array<unsigned char, N> codes;
};

// A figure of straight edges: one move, then lines.
template <std::size_t N>
constexpr Shape<N> Lines(const std::array<CPoint, N> &points) {
    Shape<N> shape{points, {}};
    for (std::size_t i = 0; i < N; ++i) shape.codes[i] = i == 0 ? PT_MOVETO : PT_LINETO;
    return shape;
}

// A figure whose curve codes mark where it rounds.
template <std::size_t N>
constexpr Shape<N> Curved(const std::array<CPoint, N> &points, const std::array<unsigned char, N> &codes) {
    return Shape<N>{points, codes};
}

constexpr int kMirrorX = 48;  // ((width - 1) / 2) * 2 for a width of 49
constexpr int kMirrorY = 82;

template <std::size_t N>
constexpr Shape<N> Mirror(Shape<N> shape, bool x, bool y) {
    for (CPoint &p : shape.points) {
        if (x) p.x = kMirrorX - p.x;
        if (y) p.y = kMirrorY - p.y;
    }
    return shape;
}

template <std::size_t N>
constexpr DigiSegment Segment(const Shape<N> &shape) {
    return DigiSegment{shape.points, shape.codes};
}

constexpr unsigned char M = PT_MOVETO, L = PT_LINETO, C = PT_BEZIERTO;

// ---- seven segments ----
constexpr auto A = Lines<4>({{{5, 4}, {12, 11}, {36, 11}, {43, 4}}});
constexpr auto B = Lines<4>({{{4, 6}, {4, 40}, {11, 36}, {11, 13}}});
constexpr auto D = Lines<6>({{{6, 41}, {14, 45}, {34, 45}, {42, 41}, {34, 37}, {14, 37}}});
constexpr auto As = Curved<7>({{{6, 4}, {5, 5}, {5, 6}, {8, 9}, {12, 11}, {36, 11}, {39, 4}}}, {M, C, C, C, L, L, L});
constexpr auto Bs = Curved<7>({{{4, 9}, {4, 39}, {6, 40}, {7, 40}, {9, 38}, {11, 36}, {11, 12}}}, {M, L, C, C, C, L, L});
constexpr auto Cs = Curved<10>({{{37, 36}, {39, 38}, {41, 40}, {42, 40}, {44, 39}, {44, 6}, {42, 4}, {41, 4}, {39, 8}, {37, 12}}},
                               {M, C, C, C, L, L, L, C, C, C});
constexpr auto Ds = Lines<6>({{{8, 41}, {12, 45}, {36, 45}, {40, 41}, {36, 37}, {12, 37}}});

constexpr auto B_X = Mirror(B, true, false);
constexpr auto B_Y = Mirror(B, false, true);
constexpr auto B_XY = Mirror(B, true, true);
constexpr auto A_Y = Mirror(A, false, true);
constexpr auto Bs_Y = Mirror(Bs, false, true);
constexpr auto Cs_Y = Mirror(Cs, false, true);
constexpr auto As_Y = Mirror(As, false, true);

// By segment bit: top, upper left, upper right, middle, lower left, lower right, bottom.
constexpr DigiSegment kSevenPlain[7] = {Segment(A), Segment(B), Segment(B_X), Segment(D),
                                        Segment(B_Y), Segment(B_XY), Segment(A_Y)};
constexpr DigiSegment kSevenSmooth[7] = {Segment(As), Segment(Bs), Segment(Cs), Segment(Ds),
                                         Segment(Bs_Y), Segment(Cs_Y), Segment(As_Y)};

// ---- fourteen segments ----
constexpr auto E = Lines<5>({{{20, 13}, {20, 36}, {24, 40}, {28, 36}, {28, 13}}});
constexpr auto F = Lines<4>({{{5, 5}, {15, 35}, {20, 37}, {18, 25}}});
constexpr auto G = Lines<6>({{{6, 41}, {14, 45}, {18, 45}, {22, 41}, {18, 37}, {14, 37}}});
constexpr auto H = Lines<4>({{{4, 7}, {4, 40}, {11, 36}, {11, 26}}});
constexpr auto I = Lines<4>({{{6, 4}, {11, 11}, {37, 11}, {42, 4}}});
constexpr auto Es = Curved<13>({{{20, 12}, {20, 25}, {22, 36}, {23, 39}, {24, 40}, {25, 39}, {26, 36}, {28, 25},
                                 {28, 12}, {26, 10}, {24, 9}, {22, 10}, {20, 12}}},
                               {M, L, L, C, C, C, L, L, L, C, C, C, L});
constexpr auto Fs = Curved<10>({{{10, 10}, {10, 13}, {11, 20}, {13, 28}, {21, 38}, {21, 37}, {19, 26}, {15, 16}, {11, 10},
                                 {10, 10}}},
                               {M, C, C, L, L, L, C, C, L, L});
constexpr auto Gs = Lines<6>({{{8, 41}, {12, 45}, {16, 45}, {23, 41}, {16, 37}, {12, 37}}});
constexpr auto Hs = Curved<10>({{{4, 7}, {4, 39}, {5, 40}, {6, 40}, {9, 37}, {11, 33}, {11, 25}, {9, 14}, {5, 6}, {4, 7}}},
                               {M, L, C, C, L, L, L, C, L, L});
constexpr auto Is = Curved<17>({{{8, 4}, {7, 5}, {7, 6}, {9, 8}, {12, 9}, {14, 11}, {19, 11}, {21, 9}, {24, 7}, {27, 9},
                                 {29, 11}, {34, 11}, {36, 9}, {39, 8}, {41, 6}, {41, 5}, {40, 4}}},
                               {M, C, C, L, C, L, L, C, L, C, L, L, C, L, C, C, L});

constexpr auto E_Y = Mirror(E, false, true);
constexpr auto Es_Y = Mirror(Es, false, true);
constexpr auto F_X = Mirror(F, true, false);
constexpr auto F_Y = Mirror(F, false, true);
constexpr auto F_XY = Mirror(F, true, true);
constexpr auto Fs_X = Mirror(Fs, true, false);
constexpr auto Fs_Y = Mirror(Fs, false, true);
constexpr auto Fs_XY = Mirror(Fs, true, true);
constexpr auto G_X = Mirror(G, true, false);
constexpr auto Gs_X = Mirror(Gs, true, false);
constexpr auto H_Y = Mirror(H, false, true);
constexpr auto H_X = Mirror(H, true, false);
constexpr auto H_XY = Mirror(H, true, true);
constexpr auto Hs_Y = Mirror(Hs, false, true);
constexpr auto Hs_X = Mirror(Hs, true, false);
constexpr auto Hs_XY = Mirror(Hs, true, true);
constexpr auto I_Y = Mirror(I, false, true);
constexpr auto Is_Y = Mirror(Is, false, true);

// By segment bit: centre upper, the four diagonals (upper left, upper right,
// lower left, lower right), centre lower, middle left and right, upper left,
// lower left, bottom, lower right, upper right, top.
constexpr DigiSegment kFourteenPlain[14] = {
    Segment(E),   Segment(F),   Segment(F_X), Segment(F_Y), Segment(F_XY), Segment(E_Y),  Segment(G),
    Segment(G_X), Segment(H),   Segment(H_Y), Segment(I_Y), Segment(H_XY), Segment(H_X),  Segment(I)};
constexpr DigiSegment kFourteenSmooth[14] = {
    Segment(Es),   Segment(Fs),   Segment(Fs_X), Segment(Fs_Y), Segment(Fs_XY), Segment(Es_Y),  Segment(Gs),
    Segment(Gs_X), Segment(Hs),   Segment(Hs_Y), Segment(Is_Y), Segment(Hs_XY), Segment(Hs_X),  Segment(Is)};

// ---- colon and dot: the same squares in both styles ----
constexpr auto Upper = Lines<4>({{{4, 23}, {4, 32}, {13, 32}, {13, 23}}});
constexpr auto Lower = Lines<4>({{{4, 50}, {4, 59}, {13, 59}, {13, 50}}});
constexpr auto Dot = Lines<4>({{{4, 68}, {4, 77}, {13, 77}, {13, 68}}});
constexpr DigiSegment kColonDot[3] = {Segment(Upper), Segment(Lower), Segment(Dot)};

}  // namespace qor::digi_shapes_impl

namespace qor {

const DigiShapeSet &SevenSegmentShapes() {
    using namespace digi_shapes_impl;
    static constexpr DigiShapeSet set{49, 7, kSevenPlain, kSevenSmooth};
    return set;
}

const DigiShapeSet &FourteenSegmentShapes() {
    using namespace digi_shapes_impl;
    static constexpr DigiShapeSet set{49, 14, kFourteenPlain, kFourteenSmooth};
    return set;
}

const DigiShapeSet &ColonDotShapes() {
    using namespace digi_shapes_impl;
    static constexpr DigiShapeSet set{18, 3, kColonDot, kColonDot};
    return set;
}

}  // namespace qor
