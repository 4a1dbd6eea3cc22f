// The view of an instrument: named models, one of which (the root, with its
// mates) is drawn, named saved views, and picking of the model under a point
// through OpenGL selection.
#pragma once

#include <map>
#include <memory>
#include <string>
#include <vector>

#include "qor/view3d/QorOpenGlBase.h"
#include "qor/view3d/VRMLModel.h"

// A saved view: the camera and scene matrices, by value.
struct QorOglModelView {
    CCamera camera;
    CScene scene;
};

class QorOpenGlModel : public QorOpenGlBase {
public:
    QorOpenGlModel() = default;
    // Frees the models, as DeleteModels does.
    ~QorOpenGlModel() override;

    void InitOpenGL() override;
    // Draws the root model and its mates.
    void RenderScene() override;
    // A hook for a derived view; draws nothing.
    virtual void ClientRender();
    // The id of the model under the window point (x, y), or 0. Works on the
    // matrices of the last paint, so a pick needs a paint before it.
    virtual int ProcessSelection(unsigned short x, unsigned short y);
    // Two opposite directional lights along z.
    virtual void SetupLighting();

    // Makes a model of the VRML file and stores it under name; a load failure
    // leaves an empty model stored. A model already under the name is
    // replaced in the map but stays alive (mates may point at it) until
    // DeleteModels.
    void AddModel(const std::string &path, const std::string &name, float rotation, int id);
    // The same from a resource of the type "OpenGL", without welding.
    void AddModelFromResource(HINSTANCE__ *module, unsigned int id, const std::string &name, float rotation,
                              int modelId);
    // Writes the VRML file's model in the binary format beside it: the last
    // four characters of the path become ".bin". Throws std::out_of_range for
    // a path shorter than four characters. False when the file cannot be written.
    bool ConvertWrlToBin(const std::string &path, const std::string &name, float rotation);
    // Unknown names are ignored.
    void AddMate(const std::string &parent, const std::string &mate, float rotation, float x, float y, float z);
    void DeleteMate(const std::string &parent, const std::string &mate);
    void Rotate(const std::string &name, float angle);
    void Scale(const std::string &name, float x, float y, float z);
    void Translate(const std::string &name, float x, float y, float z);
    // The model under name; an unknown name gets a new empty model, as a
    // subscript would make an entry.
    VRMLModel &GetModel(const std::string &name);
    // Stores a model made by the caller under name, as AddModel does.
    void StoreModel(const std::string &name, std::unique_ptr<VRMLModel> model) { Store(name, std::move(model)); }
    // True when a model is stored under name.
    bool HasModel(const std::string &name) const;
    // Leaves its arguments as they are.
    void GetModelOrientation(const std::string &name, float &x, float &y, float &z, float &angle);
    void GenerateModels();
    void ClearModels();
    void DeleteModels();
    const std::map<std::string, VRMLModel *> &GetModels() const { return models; }

    // Keeps an existing entry.
    void AddView(const std::string &name, const QorOglModelView &view);
    // Only an existing entry.
    void ModView(const std::string &name, const QorOglModelView &view);
    void DelView(const std::string &name);
    // Copies the view's matrices into the control and repaints; an unknown
    // name changes nothing.
    void SelView(const std::string &name);
    const std::map<std::string, QorOglModelView> &GetViews() const { return views; }
    // The current matrices as a view.
    QorOglModelView CurrentView() const { return {camera, scene}; }

    void RenderFog();
    void RenderTable();

    std::string rootModelName;

protected:
    // Reads the selection records: the record whose third word, read as a
    // float, is the largest (the later on a tie) gives its last non-zero
    // name; 0 when none does.
    int GetClosestHit(int hits, unsigned int *const buffer);
    // The selection steps before anything is drawn: buffer, select mode, an
    // empty name, and the pick region around (x, y) ahead of the fixed
    // projection, pushed on the projection stack.
    void StartSelection(unsigned int *buffer, int words, unsigned short x, unsigned short y) const;

    std::map<std::string, VRMLModel *> models;
    std::map<std::string, QorOglModelView> views;

private:
    VRMLModel *Find(const std::string &name) const;
    void Store(const std::string &name, std::unique_ptr<VRMLModel> model);
    // Models replaced under their name, kept alive for mates that point at them.
    std::vector<std::unique_ptr<VRMLModel>> replaced;
};
