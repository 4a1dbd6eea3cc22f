#include "qor/view3d/QorOpenGlModel.h"

#include <GL/gl.h>
#include <GL/glu.h>

#include <bit>
#include <cstdint>

namespace {
// Words of the selection buffer, as the control has always had.
constexpr int kSelectionWords = 64;
}  // namespace

QorOpenGlModel::~QorOpenGlModel() { DeleteModels(); }

void QorOpenGlModel::InitOpenGL() {
    MakeWindowContext();
    glShadeModel(GL_FLAT);
    SetLinesAndCulling();
    SetupLighting();
    glEnable(GL_COLOR_MATERIAL);
    glColorMaterial(GL_FRONT_AND_BACK, GL_DIFFUSE);
    glEnable(GL_DEPTH_TEST);
    glDepthRange(0, 1);
    glEnable(GL_NORMALIZE);
    Invalidate(true);
}

void QorOpenGlModel::SetupLighting() {
    const GLfloat a[] = {0.25f, 0.25f, 0.25f, 1}, d[] = {0.3f, 0.3f, 0.3f, 1}, s[] = {0.9f, 0.9f, 0.9f, 1};
    const GLfloat front[] = {0, 0, 2, 0}, back[] = {0, 0, -2, 0};
    glLightModelfv(GL_LIGHT_MODEL_AMBIENT, a);
    glEnable(GL_LIGHTING);
    for (auto [light, position] : {std::pair{GL_LIGHT0, front}, std::pair{GL_LIGHT1, back}}) {
        glLightfv(light, GL_AMBIENT, a);
        glLightfv(light, GL_DIFFUSE, d);
        glLightfv(light, GL_SPECULAR, s);
        glLightfv(light, GL_POSITION, position);
        glEnable(light);
    }
}

void QorOpenGlModel::RenderScene() {
    glColor3f(0.1f, 0.1f, 0.1f);
    VRMLModel *root = Find(rootModelName);
    if (!root) return;
    glPushMatrix();
    glMatrixMode(GL_MODELVIEW);
    root->ExecuteTransforms();
    glPopMatrix();
}

void QorOpenGlModel::ClientRender() {}

void QorOpenGlModel::StartSelection(unsigned int *buffer, int words, unsigned short x, unsigned short y) const {
    GLint viewport[4];
    glSelectBuffer(words, buffer);
    glGetIntegerv(GL_VIEWPORT, viewport);
    glRenderMode(GL_SELECT);
    glInitNames();
    glPushName(0);
    glMatrixMode(GL_PROJECTION);
    glPushMatrix();
    glLoadIdentity();
    gluPickMatrix(x, viewport[3] - y, 3.0, 3.0, viewport);
    LoadProjection();
}

int QorOpenGlModel::ProcessSelection(unsigned short x, unsigned short y) {
    GLuint buffer[kSelectionWords] = {};
    StartSelection(buffer, kSelectionWords, x, y);
    glColor3f(0.1f, 0.1f, 0.1f);
    // The placements go into the projection matrix and the model-view matrix
    // is the last paint's: that is how picking has always worked.
    if (VRMLModel *root = Find(rootModelName)) root->ExecuteTransforms();
    // One push, three pops: the extra two underflow, which OpenGL records
    // and ignores, and the next paint loads the projection again.
    glPopMatrix();
    glPopMatrix();
    glFlush();
    const GLint hits = glRenderMode(GL_RENDER);
    const int result = hits > 0 ? GetClosestHit(hits, buffer) : 0;
    glMatrixMode(GL_PROJECTION);
    glPopMatrix();
    glMatrixMode(GL_MODELVIEW);
    return result;
}

int QorOpenGlModel::GetClosestHit(int hits, unsigned int *const buffer) {
    if (hits < 1) return 0;
    int result = 0;
    float best = 0;
    std::size_t at = 0;
    for (int record = 0; record < hits; ++record) {
        // A record: name count, minimum depth, maximum depth, the names. A
        // record that would run past the selection buffer ends the walk.
        if (at + 3 > kSelectionWords) break;
        const unsigned names = buffer[at];
        if (names > kSelectionWords - at - 3) break;
        // The third word's bits read as a float, not converted: so it has always ranked hits.
        const float value = std::bit_cast<float>(static_cast<std::uint32_t>(buffer[at + 2])) * 4.656613e-10f;
        if (record == 0) best = value;
        for (unsigned n = 0; n < names; ++n) {
            const unsigned name = buffer[at + 3 + n];
            if (name != 0 && value >= best) {
                result = static_cast<int>(name);
                best = value;
            }
        }
        at += 3 + names;
    }
    return result;
}

VRMLModel *QorOpenGlModel::Find(const std::string &name) const {
    auto it = models.find(name);
    return it == models.end() ? nullptr : it->second;
}

bool QorOpenGlModel::HasModel(const std::string &name) const { return Find(name) != nullptr; }

void QorOpenGlModel::Store(const std::string &name, std::unique_ptr<VRMLModel> model) {
    VRMLModel *&slot = models[name];
    if (slot) replaced.emplace_back(slot);
    slot = model.release();
}

void QorOpenGlModel::AddModel(const std::string &path, const std::string &name, float rotation, int id) {
    auto model = std::make_unique<VRMLModel>(name, rotation, id);
    model->OpenFile(path, false);
    Store(name, std::move(model));
}

void QorOpenGlModel::AddModelFromResource(HINSTANCE__ *module, unsigned int id, const std::string &name,
                                          float rotation, int modelId) {
    auto model = std::make_unique<VRMLModel>(name, rotation, modelId);
    model->LoadModelFromResource(module, id, "OpenGL", false);
    Store(name, std::move(model));
}

bool QorOpenGlModel::ConvertWrlToBin(const std::string &path, const std::string &name, float rotation) {
    VRMLModel model(name, rotation, 0);
    model.OpenFile(path, false);
    std::string target = path;
    target.erase(path.size() - 4);  // out_of_range below four characters
    return model.SaveBinaryFile(target + ".bin");
}

void QorOpenGlModel::AddMate(const std::string &parent, const std::string &mate, float rotation, float x, float y,
                             float z) {
    VRMLModel *p = Find(parent), *m = Find(mate);
    if (p && m) p->AddMate(*m, rotation, x, y, z);
}

void QorOpenGlModel::DeleteMate(const std::string &parent, const std::string &mate) {
    VRMLModel *p = Find(parent), *m = Find(mate);
    if (p && m) p->DeleteMate(*m);
}

void QorOpenGlModel::Rotate(const std::string &name, float angle) {
    if (VRMLModel *m = Find(name)) m->Rotate(angle);
    Invalidate(true);
}

void QorOpenGlModel::Scale(const std::string &name, float x, float y, float z) {
    if (VRMLModel *m = Find(name)) m->Scale(x, y, z);
    Invalidate(true);
}

void QorOpenGlModel::Translate(const std::string &name, float x, float y, float z) {
    if (VRMLModel *m = Find(name)) m->Translate(x, y, z);
    Invalidate(true);
}

VRMLModel &QorOpenGlModel::GetModel(const std::string &name) {
    if (VRMLModel *m = Find(name)) return *m;
    Store(name, std::make_unique<VRMLModel>(name, 0.0f, 0));
    return *models[name];
}

void QorOpenGlModel::GetModelOrientation(const std::string &, float &, float &, float &, float &) {}

void QorOpenGlModel::GenerateModels() {
    for (auto &[name, model] : models)
        if (model) model->Generate();
}

void QorOpenGlModel::ClearModels() {
    for (auto &[name, model] : models)
        if (model) model->Clear();
}

void QorOpenGlModel::DeleteModels() {
    for (auto &[name, model] : models) delete model;
    models.clear();
    replaced.clear();
}

void QorOpenGlModel::AddView(const std::string &name, const QorOglModelView &view) { views.emplace(name, view); }

void QorOpenGlModel::ModView(const std::string &name, const QorOglModelView &view) {
    if (auto it = views.find(name); it != views.end()) it->second = view;
}

void QorOpenGlModel::DelView(const std::string &name) { views.erase(name); }

void QorOpenGlModel::SelView(const std::string &name) {
    auto it = views.find(name);
    if (it == views.end()) return;
    camera = it->second.camera;
    scene = it->second.scene;
    Invalidate(true);
}

void QorOpenGlModel::RenderFog() {
    glClearColor(0.5f, 0.5f, 0.5f, 1);
    glFogi(GL_FOG_MODE, GL_EXP);
    const GLfloat colour[] = {0.5f, 0.5f, 0.5f, 0.9f};
    glFogfv(GL_FOG_COLOR, colour);
    glFogf(GL_FOG_DENSITY, 0.25f);
    glHint(GL_FOG_HINT, GL_DONT_CARE);
    glFogf(GL_FOG_START, 1);
    glFogf(GL_FOG_END, 5);
    glEnable(GL_FOG);
}

void QorOpenGlModel::RenderTable() {
    // A red ramp over the plane y = 0.
    struct Corner {
        GLfloat x, z, red;
    };
    constexpr Corner corners[] = {{-1, 1, 0.2f}, {1, 1, 0.4f}, {1, -1, 0.6f}, {-1, -1, 0.8f}};
    glBegin(GL_QUADS);
    for (const Corner &c : corners) {
        glColor3f(c.red, 0, 0);
        glVertex3f(c.x, 0, c.z);
    }
    glEnd();
}
