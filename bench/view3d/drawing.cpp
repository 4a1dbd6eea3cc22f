// Drawing a frame of a 1,000,000-triangle model on Mesa, offscreen: from its
// display list (the view's way) against immediate mode, and a pick through
// OpenGL selection on the same model.
#include <GL/gl.h>

#include "BenchSupport.h"

namespace {

constexpr int kSize = 512;

// The view making the same calls as the display list holds, each frame.
class ImmediateView : public QorOpenGlModel {
public:
    void RenderScene() override {
        glColor3f(0.1f, 0.1f, 0.1f);
        const VRMLModel &model = GetModel(rootModelName);
        const auto &v = model.GetVertices();
        const Material &m = model.GetMaterials()[0];
        glColorMaterial(GL_FRONT, GL_AMBIENT_AND_DIFFUSE);
        glEnable(GL_COLOR_MATERIAL);
        glBegin(GL_TRIANGLES);
        glMaterialfv(GL_FRONT, GL_AMBIENT, m.ambient);
        glMaterialfv(GL_FRONT, GL_DIFFUSE, m.diffuse);
        glMaterialfv(GL_FRONT, GL_EMISSION, m.emissive);
        glMaterialfv(GL_FRONT, GL_SPECULAR, m.specular);
        glMaterialfv(GL_FRONT, GL_SHININESS, &m.shininess);
        for (const Face &f : model.GetFaces()) {
            const Vector3D &a = v[static_cast<std::size_t>(f.first)], &b = v[static_cast<std::size_t>(f.second)],
                           &c = v[static_cast<std::size_t>(f.third)];
            const float ux = a.x - b.x, uy = a.y - b.y, uz = a.z - b.z, wx = b.x - c.x, wy = b.y - c.y, wz = b.z - c.z;
            const float nx = uy * wz - uz * wy, ny = uz * wx - ux * wz, nz = ux * wy - uy * wx;
            const float scale = 1.0f / std::sqrt(nx * nx + ny * ny + nz * nz);
            glNormal3f(nx * scale, ny * scale, nz * scale);
            glVertex3fv(&a.x);
            glVertex3fv(&b.x);
            glVertex3fv(&c.x);
        }
        glEnd();
    }
};

struct Scene {
    qor::OffscreenGlContext context{kSize, kSize};
    QorOpenGlModel listed;
    ImmediateView immediate;
    std::size_t triangles = 0;

    Scene() {
        if (!context) return;
        const view_bench::Mesh mesh = view_bench::Sphere(1000000);
        Material blue;
        blue.emissive[0] = 0.1f, blue.emissive[1] = 0.2f, blue.emissive[2] = 0.8f;
        const std::string bytes = qor::EncodeBinaryModel(mesh.vertices, mesh.faces, {blue});
        triangles = mesh.faces.size();
        for (QorOpenGlModel *view : {static_cast<QorOpenGlModel *>(&listed), static_cast<QorOpenGlModel *>(&immediate)}) {
            view->InitOpenGL();
            view->OnSize(0, kSize, kSize);
            auto model = std::make_unique<VRMLModel>("sphere", 0.0f, 1);
            model->LoadBinaryFile(bytes.data(), bytes.size());
            if (view == &listed) model->Generate();
            view->StoreModel("sphere", std::move(model));
            view->rootModelName = "sphere";
        }
    }
};

Scene &TheScene() {
    static Scene scene;
    return scene;
}

void Frame(benchmark::State &state, QorOpenGlModel &view) {
    Scene &scene = TheScene();
    if (!scene.context) {
        state.SkipWithError(scene.context.Error().c_str());
        return;
    }
    for (auto _ : state) {
        view.OnPaint();
        glFinish();
    }
    state.counters["triangles"] = static_cast<double>(scene.triangles);
}

void DisplayList(benchmark::State &state) { Frame(state, TheScene().listed); }
void Immediate(benchmark::State &state) { Frame(state, TheScene().immediate); }

void Pick(benchmark::State &state) {
    Scene &scene = TheScene();
    if (!scene.context) {
        state.SkipWithError(scene.context.Error().c_str());
        return;
    }
    scene.listed.OnPaint();
    int id = 0;
    for (auto _ : state) id = scene.listed.ProcessSelection(kSize / 2, kSize / 2);
    state.counters["id"] = id;
    while (glGetError() != GL_NO_ERROR) {
    }
}

}  // namespace

int main(int argc, char **argv) {
    view_bench::Measured(benchmark::RegisterBenchmark("qor/frame-from-display-list", DisplayList), 2.0);
    view_bench::Measured(benchmark::RegisterBenchmark("immediate/frame", Immediate), 2.0);
    view_bench::Measured(benchmark::RegisterBenchmark("qor/pick", Pick), 2.0);
    benchmark::Initialize(&argc, argv);
    view_bench::BestTimes reporter;
    benchmark::RunSpecifiedBenchmarks(&reporter);
    std::printf("\nA frame of %zu triangles at %dx%d on Mesa: the display list is %.2f x as fast as immediate"
                " mode; a pick takes %.1f ms of CPU\n",
                TheScene().triangles, kSize, kSize,
                view_bench::Ratio(reporter.Cpu("immediate/frame"), reporter.Cpu("qor/frame-from-display-list")),
                reporter.Cpu("qor/pick") * 1e3);
    return 0;
}
