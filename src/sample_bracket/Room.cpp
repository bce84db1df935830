#include "Room.h"

#include "noise.h"

#include <utility>

namespace sample {

namespace {

constexpr float kPi = 3.14159265F;
constexpr float kHalfWidth = 3.0F;
constexpr float kHeight = 2.8F;
constexpr float kDepth = 6.6F;
constexpr float kTableTop = 0.76F;
constexpr Vector3 kLamp{2.45F, 0.0F, 1.15F};
constexpr float kDresserTop = 0.86F;

class Furnisher
{
public:
    Room furnish()
    {
        addWalls();
        addWindow();
        addCurtains();
        addBookcase();
        addDresser();
        addLamp();
        addPainting();
        addTable();
        addStillLife();
        addChair({-1.45F, 0.0F, 1.95F}, 0.35F);
        addChair({1.55F, 0.0F, 3.25F}, -1.35F);
        addWindowSill();
        return {std::move(surfaces_), SolidTree(std::move(solids_))};
    }

private:
    int surface(Pattern pattern, Vector3 color, Vector3 secondColor = {}, float gloss = 0.0F,
                Vector3 emission = {})
    {
        surfaces_.push_back({pattern, color, secondColor, gloss, emission});
        return static_cast<int>(surfaces_.size()) - 1;
    }

    Solid &add(Shape shape, int surface, Vector3 center, Vector3 halfSize, const Matrix3 &axes = {})
    {
        solids_.push_back({shape, surface, center, halfSize, axes, 1.0F});
        return solids_.back();
    }

    void addBox(int surface, Vector3 low, Vector3 high)
    {
        add(Shape::Box, surface, (low + high) * 0.5F, (high - low) * 0.5F);
    }

    /// Upright cone, closed or open, from radius bottom at y to radius top at y + height.
    void addCone(Shape shape, int surface, Vector3 foot, float height, float bottom, float top)
    {
        Solid &cone = add(shape, surface, foot + Vector3{0.0F, 0.5F * height, 0.0F},
                          {bottom, 0.5F * height, bottom});
        cone.topRadius = top / bottom;
    }

    /// Turned body: radius(t) for t from 0 (foot) to 1 (rim), open at the top.
    template <typename Radius>
    void addTurned(int surface, Vector3 foot, float height, const Radius &radius)
    {
        constexpr int kSlices = 22;
        for (int i = 0; i < kSlices; ++i) {
            const float t = static_cast<float>(i) / kSlices;
            const float next = static_cast<float>(i + 1) / kSlices;
            addCone(i == 0 ? Shape::Cone : Shape::Tube, surface,
                    foot + Vector3{0.0F, t * height, 0.0F}, height / kSlices, radius(t),
                    radius(next));
        }
    }

    float random() { return uniform(++randomKey_); }
    float random(float low, float high) { return mix(low, high, random()); }

    void addWalls();
    void addWindow();
    void addCurtains();
    void addBookcase();
    void addBooks(float z, float zEnd, float y, float height);
    void addDresser();
    void addLamp();
    void addPainting();
    void addTable();
    void addStillLife();
    void addFruitBowl(Vector3 foot);
    void addFlowers(Vector3 mouth);
    void addChair(Vector3 place, float yaw);
    void addWindowSill();
    void addPottedPlant(Vector3 foot, float size);

    std::vector<Surface> surfaces_;
    std::vector<Solid> solids_;
    std::uint64_t randomKey_ = 77;
};

void Furnisher::addWalls()
{
    const WindowOpening opening = windowOpening();
    const int floor =
        surface(Pattern::Planks, {0.42F, 0.25F, 0.13F}, {0.25F, 0.13F, 0.06F}, 0.035F);
    const int plaster = surface(Pattern::Plaster, {0.70F, 0.64F, 0.52F});
    const int ceiling = surface(Pattern::Plaster, {0.80F, 0.77F, 0.70F});
    const int bricks = surface(Pattern::Bricks, {0.55F, 0.24F, 0.15F}, {0.36F, 0.15F, 0.10F});
    const int beam = surface(Pattern::WoodGrain, {0.22F, 0.13F, 0.07F}, {0.12F, 0.07F, 0.035F});
    const int rug = surface(Pattern::Rug, {0.46F, 0.10F, 0.07F}, {0.66F, 0.52F, 0.30F});
    addBox(floor, {-kHalfWidth, -0.2F, 0.0F}, {kHalfWidth, 0.0F, kDepth});
    addBox(ceiling, {-kHalfWidth, kHeight, 0.0F}, {kHalfWidth, kHeight + 0.2F, kDepth});
    addBox(plaster, {-kHalfWidth - 0.2F, 0.0F, 0.0F}, {-kHalfWidth, kHeight, kDepth});
    addBox(bricks, {kHalfWidth, 0.0F, 0.0F}, {kHalfWidth + 0.2F, kHeight, kDepth});
    addBox(plaster, {-kHalfWidth, 0.0F, kDepth}, {kHalfWidth, kHeight, kDepth + 0.2F});
    // The wall around the opening.
    addBox(plaster, {-kHalfWidth - 0.2F, -0.2F, -0.3F}, {opening.low.x, kHeight + 0.2F, 0.0F});
    addBox(plaster, {opening.high.x, -0.2F, -0.3F}, {kHalfWidth + 0.2F, kHeight + 0.2F, 0.0F});
    addBox(plaster, {opening.low.x, -0.2F, -0.3F}, {opening.high.x, opening.low.y, 0.0F});
    addBox(plaster, {opening.low.x, opening.high.y, -0.3F}, {opening.high.x, kHeight + 0.2F, 0.0F});
    for (const float z : {0.55F, 1.75F, 2.95F, 4.15F, 5.35F})
        addBox(beam, {-kHalfWidth, kHeight - 0.17F, z - 0.08F}, {kHalfWidth, kHeight, z + 0.08F});
    addBox(rug, {-2.05F, 0.0F, 1.5F}, {1.95F, 0.012F, 4.5F});
}

void Furnisher::addWindow()
{
    const WindowOpening opening = windowOpening();
    const int paint = surface(Pattern::Plain, {0.78F, 0.76F, 0.70F}, {}, 0.04F);
    const float width = opening.high.x - opening.low.x;
    const float height = opening.high.y - opening.low.y;
    const auto addBar = [&](float x1, float x2, float y1, float y2, float depth) {
        addBox(paint, {x1, y1, -0.20F - depth}, {x2, y2, -0.20F + depth});
    };
    for (int column = 0; column <= 4; ++column) {
        const float x = opening.low.x + 0.25F * width * static_cast<float>(column);
        const float half = column % 2 == 0 ? 0.045F : 0.018F;
        addBar(x - half, x + half, opening.low.y, opening.high.y, half);
    }
    for (const float share : {0.0F, 0.68F, 1.0F}) {
        const float y = opening.low.y + share * height;
        const float half = share == 0.68F ? 0.018F : 0.045F;
        addBar(opening.low.x, opening.high.x, y - half, y + half, half);
    }
    addBox(paint, {opening.low.x - 0.12F, opening.low.y - 0.05F, -0.30F},
           {opening.high.x + 0.12F, opening.low.y, 0.22F});
}

void Furnisher::addCurtains()
{
    const WindowOpening opening = windowOpening();
    const int cloth = surface(Pattern::Cloth, {0.20F, 0.34F, 0.36F}, {0.62F, 0.55F, 0.36F});
    const int rod =
        surface(Pattern::WoodGrain, {0.30F, 0.17F, 0.08F}, {0.18F, 0.10F, 0.05F}, 0.03F);
    const float rodHeight = opening.high.y + 0.10F;
    Solid &bar = add(Shape::Cone, rod, {0.5F * (opening.low.x + opening.high.x), rodHeight, 0.16F},
                     {0.018F, 2.15F, 0.018F});
    bar.axes = {{0.0F, -1.0F, 0.0F}, {1.0F, 0.0F, 0.0F}, {0.0F, 0.0F, 1.0F}};
    for (const float start : {opening.low.x - 0.44F, opening.high.x + 0.04F}) {
        for (int fold = 0; fold < 9; ++fold) {
            const float x = start + 0.05F * static_cast<float>(fold);
            const float radius = 0.030F + 0.014F * random();
            addCone(Shape::Cone, cloth, {x, 0.06F, 0.16F + random(-0.018F, 0.018F)},
                    rodHeight - 0.05F, radius * 1.25F, radius * 0.85F);
        }
    }
}

void Furnisher::addBooks(float z, float zEnd, float y, float height)
{
    static constexpr Vector3 kCovers[] = {
        {0.45F, 0.08F, 0.06F}, {0.07F, 0.16F, 0.32F}, {0.10F, 0.26F, 0.14F}, {0.55F, 0.40F, 0.16F},
        {0.62F, 0.58F, 0.48F}, {0.20F, 0.10F, 0.20F}, {0.10F, 0.10F, 0.11F}, {0.60F, 0.27F, 0.10F}};
    static constexpr Vector3 kTitles[] = {
        {0.72F, 0.60F, 0.30F}, {0.80F, 0.78F, 0.70F}, {0.70F, 0.62F, 0.36F}, {0.14F, 0.09F, 0.06F},
        {0.40F, 0.08F, 0.06F}, {0.70F, 0.60F, 0.32F}, {0.75F, 0.72F, 0.66F}, {0.10F, 0.08F, 0.08F}};
    while (z < zEnd) {
        const auto cover = static_cast<size_t>(random() * 7.99F);
        const float half = random(0.011F, 0.030F);
        const float tall = height * random(0.62F, 0.93F);
        const int book = surface(Pattern::BookSpine, kCovers[cover], kTitles[cover], 0.02F);
        add(Shape::Box, book,
            {-kHalfWidth + 0.16F + random(-0.01F, 0.02F), y + 0.5F * tall, z + half},
            {0.11F, 0.5F * tall, half});
        z += 2.0F * half + 0.002F + (random() < 0.06F ? 0.09F : 0.0F);
    }
}

void Furnisher::addBookcase()
{
    constexpr float kStart = 0.55F;
    constexpr float kEnd = 3.35F;
    constexpr float kShelf = 0.40F;
    const int wood =
        surface(Pattern::WoodGrain, {0.36F, 0.21F, 0.11F}, {0.21F, 0.11F, 0.055F}, 0.02F);
    const int vase = surface(Pattern::Ceramic, {0.55F, 0.60F, 0.58F}, {0.10F, 0.22F, 0.38F}, 0.05F);
    for (int row = 0; row <= 6; ++row) {
        const float y = 0.08F + kShelf * static_cast<float>(row);
        addBox(wood, {-kHalfWidth, y - 0.03F, kStart}, {-kHalfWidth + 0.32F, y, kEnd});
    }
    for (const float z : {kStart, 0.5F * (kStart + kEnd), kEnd})
        addBox(wood, {-kHalfWidth, 0.0F, z - 0.02F}, {-kHalfWidth + 0.325F, 2.48F, z + 0.02F});
    for (int row = 0; row < 6; ++row) {
        const float y = 0.08F + kShelf * static_cast<float>(row);
        addBooks(kStart + 0.03F, row == 3 ? 1.45F : 1.90F, y, 0.36F);
        addBooks(row == 4 ? 2.45F : 2.00F, kEnd - 0.08F, y, 0.36F);
    }
    addTurned(vase, {-kHalfWidth + 0.17F, 0.08F + 3.0F * kShelf, 1.68F}, 0.28F,
              [](float t) { return 0.045F + 0.05F * std::sin(kPi * (0.12F + 0.78F * t)); });
    addTurned(vase, {-kHalfWidth + 0.17F, 0.08F + 4.0F * kShelf, 2.22F}, 0.2F,
              [](float t) { return 0.05F + 0.06F * std::sin(kPi * (0.2F + 0.7F * t)); });
}

void Furnisher::addDresser()
{
    const int wood = surface(Pattern::Drawers, {0.44F, 0.24F, 0.11F}, {0.28F, 0.14F, 0.06F}, 0.03F);
    const int top =
        surface(Pattern::WoodGrain, {0.40F, 0.22F, 0.10F}, {0.25F, 0.12F, 0.05F}, 0.05F);
    const int brass = surface(Pattern::Plain, {0.60F, 0.42F, 0.16F}, {}, 0.30F);
    const float front = kHalfWidth - 0.55F;
    addBox(wood, {front, 0.12F, 0.55F}, {kHalfWidth, kDresserTop - 0.03F, 2.41F});
    addBox(top, {front - 0.03F, kDresserTop - 0.03F, 0.50F}, {kHalfWidth, kDresserTop, 2.46F});
    for (const float z : {0.62F, 2.34F})
        addBox(top, {front, 0.0F, z - 0.04F}, {front + 0.08F, 0.12F, z + 0.04F});
    for (int row = 0; row < 3; ++row) {
        for (int column = 0; column < 3; ++column) {
            const float y = 0.24F + 0.237F * static_cast<float>(row);
            const float z = 0.86F + 0.62F * static_cast<float>(column);
            add(Shape::Ball, brass, {front - 0.015F, y, z}, {0.022F, 0.022F, 0.022F});
        }
    }
    // A row of books lies and stands beside the lamp.
    static constexpr Vector3 kCovers[] = {
        {0.10F, 0.22F, 0.30F}, {0.52F, 0.14F, 0.08F}, {0.60F, 0.52F, 0.34F}};
    float y = kDresserTop;
    for (const Vector3 cover : kCovers) {
        const int book = surface(Pattern::Plain, cover, {}, 0.03F);
        add(Shape::Box, book, {kHalfWidth - 0.30F, y + 0.02F, 1.92F}, {0.14F, 0.02F, 0.19F},
            rotation(random(-0.35F, 0.35F)));
        y += 0.04F;
    }
    const int jug = surface(Pattern::Ceramic, {0.70F, 0.66F, 0.56F}, {0.45F, 0.16F, 0.08F}, 0.06F);
    addTurned(jug, {kHalfWidth - 0.3F, y, 1.92F}, 0.20F,
              [](float t) { return 0.04F + 0.04F * std::sin(kPi * (0.15F + 0.75F * t)); });
}

void Furnisher::addLamp()
{
    const int base = surface(Pattern::Ceramic, {0.14F, 0.26F, 0.24F}, {0.62F, 0.54F, 0.34F}, 0.07F);
    const int shade =
        surface(Pattern::Plain, {0.62F, 0.50F, 0.34F}, {}, 0.0F, {1.9F, 1.05F, 0.42F});
    const Bulb bulb = lampBulb();
    const int glow = surface(Pattern::Plain, {0.8F, 0.8F, 0.8F}, {}, 0.0F, bulb.radiance);
    const Vector3 foot = kLamp + Vector3{0.0F, kDresserTop, 0.0F};
    addTurned(base, foot, 0.36F, [](float t) {
        return t < 0.12F ? 0.09F
                         : 0.022F + 0.075F * std::pow(std::sin(kPi * std::min(t, 0.97F)), 1.3F);
    });
    addCone(Shape::Tube, shade, foot + Vector3{0.0F, 0.34F, 0.0F}, 0.30F, 0.225F, 0.13F);
    add(Shape::Ball, glow, bulb.center, {bulb.radius, bulb.radius, bulb.radius});
}

void Furnisher::addPainting()
{
    const int canvas = surface(Pattern::Painting, {0.5F, 0.5F, 0.5F});
    const int frame =
        surface(Pattern::WoodGrain, {0.58F, 0.42F, 0.18F}, {0.36F, 0.24F, 0.09F}, 0.08F);
    const Matrix3 turn = rotation(0.5F * kPi);
    add(Shape::Box, frame, {2.36F, 1.86F, 0.02F}, {0.025F, 0.25F, 0.34F}, turn);
    add(Shape::Box, canvas, {2.36F, 1.86F, 0.03F}, {0.025F, 0.20F, 0.29F}, turn);
}

void Furnisher::addTable()
{
    const int wood =
        surface(Pattern::WoodGrain, {0.50F, 0.29F, 0.14F}, {0.31F, 0.16F, 0.07F}, 0.05F);
    add(Shape::Box, wood, {0.0F, kTableTop - 0.02F, 2.95F}, {1.22F, 0.02F, 0.62F});
    addBox(wood, {-1.10F, kTableTop - 0.13F, 2.43F}, {1.10F, kTableTop - 0.04F, 2.46F});
    addBox(wood, {-1.10F, kTableTop - 0.13F, 3.44F}, {1.10F, kTableTop - 0.04F, 3.47F});
    for (const float x : {-1.10F, 1.10F}) {
        for (const float z : {2.45F, 3.45F})
            addTurned(wood, {x, 0.0F, z}, kTableTop - 0.04F,
                      [](float t) { return 0.035F + 0.012F * std::sin(kPi * 5.0F * t); });
    }
}

void Furnisher::addFruitBowl(Vector3 foot)
{
    const int bowl = surface(Pattern::Ceramic, {0.72F, 0.70F, 0.64F}, {0.10F, 0.20F, 0.44F}, 0.06F);
    addTurned(bowl, foot, 0.12F, [](float t) { return 0.07F + 0.13F * std::sqrt(t); });
    const int orange =
        surface(Pattern::Mottled, {0.78F, 0.34F, 0.04F}, {0.85F, 0.42F, 0.06F}, 0.04F);
    const int apple =
        surface(Pattern::Mottled, {0.55F, 0.05F, 0.04F}, {0.70F, 0.45F, 0.10F}, 0.06F);
    const int pear = surface(Pattern::Mottled, {0.50F, 0.55F, 0.10F}, {0.60F, 0.42F, 0.12F}, 0.04F);
    const int fruits[] = {orange, apple, pear, orange, apple, orange, apple};
    for (int i = 0; i < 6; ++i) {
        const float angle = kPi / 3.0F * static_cast<float>(i);
        add(Shape::Ball, fruits[i],
            foot + Vector3{0.095F * std::cos(angle), 0.135F, 0.095F * std::sin(angle)},
            {0.045F, 0.043F, 0.045F});
    }
    add(Shape::Ball, fruits[6], foot + Vector3{0.0F, 0.195F, 0.01F}, {0.047F, 0.045F, 0.047F});
    add(Shape::Ball, orange, {foot.x + 0.32F, foot.y + 0.045F, foot.z + 0.18F},
        {0.047F, 0.045F, 0.047F});
}

void Furnisher::addFlowers(Vector3 mouth)
{
    const int stem = surface(Pattern::Plain, {0.12F, 0.26F, 0.08F});
    const int petals[] = {surface(Pattern::Mottled, {0.75F, 0.12F, 0.16F}, {0.85F, 0.35F, 0.30F}),
                          surface(Pattern::Mottled, {0.82F, 0.78F, 0.70F}, {0.85F, 0.70F, 0.50F}),
                          surface(Pattern::Mottled, {0.80F, 0.58F, 0.08F}, {0.85F, 0.70F, 0.20F})};
    const int middle = surface(Pattern::Mottled, {0.35F, 0.20F, 0.04F}, {0.60F, 0.42F, 0.06F});
    for (int flower = 0; flower < 9; ++flower) {
        const float angle = 2.4F * static_cast<float>(flower);
        const float lean = 0.10F + 0.34F * random();
        const float tall = random(0.20F, 0.36F);
        const Matrix3 axes = rotation(angle, lean);
        const Vector3 head = mouth + axes.y * tall;
        add(Shape::Cone, stem, mouth + axes.y * (0.5F * tall), {0.004F, 0.5F * tall, 0.004F}, axes);
        add(Shape::Ball, middle, head, {0.018F, 0.012F, 0.018F}, axes);
        for (int petal = 0; petal < 8; ++petal) {
            const float turn = kPi / 4.0F * static_cast<float>(petal);
            const Vector3 out = axes * Vector3{std::sin(turn), 0.25F, std::cos(turn)};
            add(Shape::Ball, petals[flower % 3], head + out * 0.034F, {0.014F, 0.007F, 0.026F},
                rotation(angle + turn, 0.3F));
        }
        add(Shape::Ball, stem, mouth + axes.y * (0.55F * tall) + axes.x * 0.03F,
            {0.04F, 0.005F, 0.014F}, rotation(angle, 0.5F));
    }
}

void Furnisher::addStillLife()
{
    addFruitBowl({-0.12F, kTableTop, 3.02F});
    const int vase = surface(Pattern::Ceramic, {0.16F, 0.30F, 0.46F}, {0.70F, 0.68F, 0.60F}, 0.08F);
    const Vector3 vaseFoot{-0.66F, kTableTop, 2.78F};
    addTurned(vase, vaseFoot, 0.27F,
              [](float t) { return 0.038F + 0.055F * std::sin(kPi * (0.16F + 0.74F * t)); });
    addFlowers(vaseFoot + Vector3{0.0F, 0.26F, 0.0F});

    static constexpr Vector3 kCovers[] = {
        {0.08F, 0.18F, 0.32F}, {0.50F, 0.10F, 0.08F}, {0.66F, 0.58F, 0.40F}};
    const int pages = surface(Pattern::BookSpine, {0.80F, 0.76F, 0.64F}, {0.70F, 0.66F, 0.54F});
    float y = kTableTop;
    for (int i = 0; i < 3; ++i) {
        const Matrix3 turn = rotation(0.25F - 0.3F * static_cast<float>(i));
        const int cover = surface(Pattern::Plain, kCovers[i], {}, 0.04F);
        const Vector3 center{0.66F, y + 0.022F, 2.86F};
        add(Shape::Box, pages, center, {0.148F, 0.017F, 0.198F}, turn);
        for (const float side : {-0.0195F, 0.0195F})
            add(Shape::Box, cover, center + Vector3{0.0F, side, 0.0F}, {0.155F, 0.0025F, 0.205F},
                turn);
        y += 0.044F;
    }
    const int mug = surface(Pattern::Plain, {0.74F, 0.70F, 0.62F}, {}, 0.06F);
    const int coffee = surface(Pattern::Plain, {0.07F, 0.035F, 0.02F}, {}, 0.06F);
    addCone(Shape::Tube, mug, {0.66F, y, 2.86F}, 0.10F, 0.040F, 0.043F);
    addCone(Shape::Cone, coffee, {0.66F, y, 2.86F}, 0.08F, 0.038F, 0.040F);

    const int brass = surface(Pattern::Plain, {0.60F, 0.42F, 0.16F}, {}, 0.30F);
    const int wax = surface(Pattern::Plain, {0.80F, 0.74F, 0.60F}, {}, 0.02F);
    for (const float x : {0.27F, 0.40F}) {
        const Vector3 foot{x, kTableTop, 2.62F + 0.5F * (x - 0.27F)};
        addTurned(brass, foot, 0.14F, [](float t) {
            return t < 0.12F ? 0.05F : 0.012F + 0.012F * std::fabs(std::sin(kPi * 3.0F * t));
        });
        addCone(Shape::Cone, wax, foot + Vector3{0.0F, 0.14F, 0.0F}, x < 0.3F ? 0.20F : 0.15F,
                0.011F, 0.010F);
    }
    const int paper = surface(Pattern::Plain, {0.80F, 0.78F, 0.72F});
    const int ink = surface(Pattern::Plain, {0.10F, 0.10F, 0.14F});
    const Matrix3 turn = rotation(-0.2F);
    const Vector3 sheet{-0.62F, kTableTop + 0.001F, 3.28F};
    add(Shape::Box, paper, sheet, {0.15F, 0.001F, 0.105F}, turn);
    for (int line = 0; line < 7; ++line) {
        const Vector3 at{random(-0.02F, 0.0F), 0.0012F,
                         -0.075F + 0.024F * static_cast<float>(line)};
        add(Shape::Box, ink, sheet + turn * at, {random(0.07F, 0.11F), 0.0005F, 0.003F}, turn);
    }
    const Matrix3 penTurn{
        {0.0F, -1.0F, 0.0F}, normalized({0.9F, 0.0F, 0.45F}), normalized({-0.45F, 0.0F, 0.9F})};
    add(Shape::Cone, ink, {-0.36F, kTableTop + 0.008F, 3.33F}, {0.006F, 0.075F, 0.006F}, penTurn);
}

void Furnisher::addChair(Vector3 place, float yaw)
{
    const int wood =
        surface(Pattern::WoodGrain, {0.40F, 0.20F, 0.09F}, {0.24F, 0.11F, 0.05F}, 0.03F);
    const int seat = surface(Pattern::Plaster, {0.50F, 0.16F, 0.11F});
    const Matrix3 axes = rotation(yaw);
    const auto addPart = [&](int part, Vector3 at, Vector3 half) {
        add(Shape::Box, part, place + axes * at, half, axes);
    };
    addPart(wood, {0.0F, 0.44F, 0.0F}, {0.23F, 0.02F, 0.22F});
    addPart(seat, {0.0F, 0.475F, 0.0F}, {0.20F, 0.018F, 0.19F});
    for (const float x : {-0.20F, 0.20F}) {
        addPart(wood, {x, 0.22F, 0.19F}, {0.02F, 0.22F, 0.02F});
        addPart(wood, {x, 0.50F, -0.20F}, {0.02F, 0.50F, 0.02F});
    }
    for (const float y : {0.66F, 0.80F, 0.94F})
        addPart(wood, {0.0F, y, -0.20F}, {0.19F, 0.032F, 0.010F});
    addPart(wood, {0.0F, 0.18F, 0.19F}, {0.19F, 0.012F, 0.012F});
}

void Furnisher::addPottedPlant(Vector3 foot, float size)
{
    const int clay = surface(Pattern::Mottled, {0.52F, 0.24F, 0.13F}, {0.42F, 0.18F, 0.10F});
    const int leaf = surface(Pattern::Mottled, {0.10F, 0.26F, 0.07F}, {0.22F, 0.40F, 0.10F}, 0.03F);
    const int soil = surface(Pattern::Mottled, {0.06F, 0.04F, 0.03F}, {0.10F, 0.07F, 0.05F});
    addCone(Shape::Tube, clay, foot, 0.8F * size, 0.36F * size, 0.50F * size);
    addCone(Shape::Cone, soil, foot, 0.7F * size, 0.35F * size, 0.47F * size);
    const Vector3 crown = foot + Vector3{0.0F, 1.45F * size, 0.0F};
    for (int i = 0; i < 46; ++i) {
        const Matrix3 axes = rotation(2.4F * static_cast<float>(i), random(-0.9F, 0.6F));
        const Vector3 at = crown + axes.z * (size * random(0.25F, 0.72F)) +
                           Vector3{0.0F, size * random(-0.45F, 0.40F), 0.0F};
        add(Shape::Ball, leaf, at, {0.10F * size, 0.02F * size, 0.26F * size}, axes);
    }
}

void Furnisher::addWindowSill()
{
    const WindowOpening opening = windowOpening();
    addPottedPlant({opening.low.x + 0.28F, opening.low.y, 0.05F}, 0.22F);
    addPottedPlant({opening.high.x - 0.22F, opening.low.y, 0.05F}, 0.15F);
    const int glass = surface(Pattern::Plain, {0.10F, 0.30F, 0.14F}, {}, 0.10F);
    addTurned(glass, {opening.high.x - 0.62F, opening.low.y, 0.05F}, 0.26F, [](float t) {
        return t < 0.6F ? 0.042F : mix(0.042F, 0.014F, smoothStep(0.6F, 0.8F, t));
    });
}

} // namespace

WindowOpening windowOpening()
{
    return {{-1.62F, 0.92F, 0.0F}, {1.42F, 2.46F, 0.0F}};
}

Bulb lampBulb()
{
    return {kLamp + Vector3{0.0F, kDresserTop + 0.47F, 0.0F}, 0.045F, {95.0F, 58.0F, 26.0F}};
}

Ray viewRay(float x, float y)
{
    static constexpr Vector3 kEye{0.12F, 1.50F, 6.1F};
    static const Vector3 forward = normalized(Vector3{-0.02F, 1.22F, 0.0F} - kEye);
    static const Vector3 right = normalized(cross(forward, {0.0F, 1.0F, 0.0F}));
    static const Vector3 up = cross(right, forward);
    return {kEye, normalized(forward + right * x - up * y)};
}

Room furnishedRoom()
{
    return Furnisher().furnish();
}

} // namespace sample
