// qor model: facts about model files, conversion between the VRML subset and
// the binary format, and pictures drawn offscreen, with no display needed.
#include <cstdio>
#include <fstream>
#include <iostream>
#include <string>
#include <vector>

#include "Command.h"
#include "qor/view3d.h"

namespace {

const char kModelHelp[] =
    "usage: qor model info FILE [--optimize]\n"
    "       qor model convert IN OUT [--optimize]\n"
    "       qor model render FILE --png OUT.png [--size WxH] [--view NAME] [--no-fit]\n"
    "\n"
    "Model files: VRML text in the subset the view reads (.wrl and anything else),\n"
    "the flat binary format (.bin), or an assembly of parts and mates (.xml).\n"
    "\n"
    "  info     vertices, faces, materials, bounds and faces that name nothing;\n"
    "           for an assembly, each part and its mates\n"
    "  convert  VRML to binary or binary to VRML, by OUT's extension; --optimize\n"
    "           welds vertices closer than 0.001 and drops repeated faces first\n"
    "  render   draws the model as the view shows it, into a PNG, through an\n"
    "           offscreen OpenGL context; --size defaults to 640x480, --view is one\n"
    "           of front, back, left, right, top, bottom, iso (default front), and\n"
    "           the model is centred and scaled to fit unless --no-fit\n";

struct Options {
    std::vector<std::string> words;
    bool optimize = false;
    bool fit = true;
    std::string png;
    std::string view = "front";
    int width = 640;
    int height = 480;
};

// Splits flags from words; false with a message for a bad flag.
bool ParseOptions(const std::vector<std::string> &args, Options &o, std::string &error) {
    for (std::size_t i = 0; i < args.size(); ++i) {
        const std::string &a = args[i];
        auto value = [&](std::string &out) {
            if (i + 1 >= args.size()) {
                error = a + " needs a value";
                return false;
            }
            out = args[++i];
            return true;
        };
        if (a == "--optimize") {
            o.optimize = true;
        } else if (a == "--no-fit") {
            o.fit = false;
        } else if (a == "--png") {
            if (!value(o.png)) return false;
        } else if (a == "--view") {
            if (!value(o.view)) return false;
            if (!qor::FindNamedView(o.view)) {
                error = "unknown view '" + o.view + "' (front, back, left, right, top, bottom, iso)";
                return false;
            }
        } else if (a == "--size") {
            std::string size;
            if (!value(size)) return false;
            char x = 0, rest = 0;
            if (std::sscanf(size.c_str(), "%d%c%d%c", &o.width, &x, &o.height, &rest) != 3 || x != 'x' ||
                o.width < 1 || o.height < 1 || o.width > 8192 || o.height > 8192) {
                error = "--size wants WIDTHxHEIGHT, each from 1 to 8192, not '" + size + "'";
                return false;
            }
        } else if (a.size() > 1 && a[0] == '-') {
            error = "unknown option " + a;
            return false;
        } else {
            o.words.push_back(a);
        }
    }
    return true;
}

int Fail(const std::string &message) {
    std::cerr << "qor model: " << message << "\n";
    return 1;
}

void PrintModel(const VRMLModel &model, const char *indent) {
    const qor::Bounds b = qor::ModelBounds(model);
    const qor::FaceProblems problems = qor::CheckFaces(model);
    std::printf("%svertices: %zu\n%sfaces: %zu\n%smaterials: %zu\n", indent, model.GetVertices().size(), indent,
                model.GetFaces().size(), indent, model.GetMaterials().size());
    if (b.Empty()) std::printf("%sbounds: empty\n", indent);
    else
        std::printf("%sbounds: (%g %g %g) to (%g %g %g)\n", indent, b.min.x, b.min.y, b.min.z, b.max.x, b.max.y,
                    b.max.z);
    if (problems.missingVertices) std::printf("%sfaces naming missing vertices: %zu\n", indent, problems.missingVertices);
    if (problems.missingMaterials)
        std::printf("%sfaces naming missing materials: %zu\n", indent, problems.missingMaterials);
}

int Info(const Options &o) {
    if (o.words.size() != 1) return qor::cli::UsageError("model info: one FILE (see qor model --help)");
    const std::string &path = o.words[0];
    std::string error;
    if (qor::KindOfModelFile(path) != qor::ModelFileKind::Assembly) {
        VRMLModel model;
        if (!qor::LoadModelFile(model, path, o.optimize, error)) return Fail(error);
        PrintModel(model, "");
        return 0;
    }
    QorOpenGlModel view;
    if (!qor::LoadAssembly(view, path, error)) return Fail(error);
    std::printf("root: %s\n", view.rootModelName.c_str());
    for (const auto &[name, model] : view.GetModels()) {
        std::printf("part \"%s\" (id %d)\n", name.c_str(), model->GetModelId());
        PrintModel(*model, "  ");
        for (const VRMLModel *mate : model->GetMates()) {
            const Vector3D at = mate->GetMateOffset();
            std::printf("  mate \"%s\" at (%g %g %g), turned %g degrees\n", mate->GetFileName().c_str(), at.x, at.y,
                        at.z, mate->GetMateRotation());
        }
    }
    const qor::Bounds b = qor::PlacedBounds(view.GetModel(view.rootModelName));
    if (!b.Empty())
        std::printf("placed bounds: (%g %g %g) to (%g %g %g)\n", b.min.x, b.min.y, b.min.z, b.max.x, b.max.y, b.max.z);
    return 0;
}

int Convert(const Options &o) {
    if (o.words.size() != 2) return qor::cli::UsageError("model convert: IN and OUT (see qor model --help)");
    const std::string &in = o.words[0], &out = o.words[1];
    std::string error;
    if (qor::KindOfModelFile(out) == qor::ModelFileKind::Assembly)
        return Fail(out + ": an assembly cannot be written; write a .bin or a .wrl");
    VRMLModel model;
    if (!qor::LoadModelFile(model, in, o.optimize, error)) return Fail(error);
    if (qor::KindOfModelFile(out) == qor::ModelFileKind::Binary) {
        if (!model.SaveBinaryFile(out)) return Fail(out + ": cannot be written");
    } else {
        std::string text;
        if (!qor::WriteVrml(model, text, error)) return Fail(in + ": " + error);
        std::ofstream file(out, std::ios::binary | std::ios::trunc);
        file << text;
        file.close();
        if (!file) return Fail(out + ": cannot be written");
    }
    std::printf("%s: %zu vertices, %zu faces, %zu materials\n", out.c_str(), model.GetVertices().size(),
                model.GetFaces().size(), model.GetMaterials().size());
    return 0;
}

int Render(const Options &o) {
    if (o.words.size() != 1) return qor::cli::UsageError("model render: one FILE (see qor model --help)");
    if (o.png.empty()) return qor::cli::UsageError("model render: --png OUT.png is needed");
    qor::OffscreenGlContext context(o.width, o.height);
    if (!context) return Fail("no offscreen OpenGL context: " + context.Error());
    QorOpenGlModel view;
    view.InitOpenGL();
    view.OnSize(0, o.width, o.height);
    std::string error;
    if (!qor::LoadAssembly(view, o.words[0], error)) return Fail(error);
    const qor::NamedView *turn = qor::FindNamedView(o.view);
    if (o.fit) {
        CScene scene;
        scene.Set(qor::FitScene(qor::PlacedBounds(view.GetModel(view.rootModelName)), turn->turnX, turn->turnY));
        view.AddView("render", {CCamera(), scene});
        view.SelView("render");
    }
    view.OnPaint();
    if (!qor::WritePng(o.png, context.ReadPixels(), o.width, o.height)) return Fail(o.png + ": cannot be written");
    std::printf("%s: %dx%d\n", o.png.c_str(), o.width, o.height);
    return 0;
}

int RunModel(const std::vector<std::string> &args) {
    if (args.empty()) return qor::cli::UsageError("model: a subverb is needed (see qor model --help)");
    struct Subverb {
        const char *name;
        int (*run)(const Options &);
    };
    static const Subverb kSubverbs[] = {{"info", Info}, {"convert", Convert}, {"render", Render}};
    for (const Subverb &subverb : kSubverbs) {
        if (args[0] != subverb.name) continue;
        Options options;
        std::string error;
        if (!ParseOptions({args.begin() + 1, args.end()}, options, error))
            return qor::cli::UsageError("model " + args[0] + ": " + error);
        return subverb.run(options);
    }
    return qor::cli::UsageError("model: unknown subverb '" + args[0] + "' (see qor model --help)");
}

const qor::cli::QorCommand kModelCommand({"model", "facts, conversion and offscreen pictures of 3-D models",
                                          kModelHelp, RunModel});

}  // namespace
