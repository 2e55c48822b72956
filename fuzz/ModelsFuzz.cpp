// Models.xml, and the models that it names, drawn.

#include "fuzz/support/Stage.h"
#include "fuzz/support/Target.h"

#include "Core/IO/XMLDocument.h"
#include "Gfx/3D/TexturedEntity.h"
#include "Managers/3D/3DManager.h"
#include "Widgets/Controls/3DFrame/3DFrame.h"

#include <filesystem>

namespace
{

using Core::IO::XMLNode;
using Gfx::Managers::C3DManager;
using GfxFuzz::CStage;

const std::string k_file = "Models/Models.xml";

C3DManager& Models()
{
    return Core::Patterns::StaticSingleton<C3DManager>::ref();
}

void Load(std::string_view a_text)
{
    GfxFuzz::Data().Write(k_file, a_text);
    std::string error;
    GfxFuzz::Use(Models().Reload(error));
}

class CCleaner
{
public:
    ~CCleaner()
    {
        CStage::Clear();
        Load("<Models/>");
        // Textures are kept for entities, of which there are none any more.
        Load("<Models/>");
    }
};

void AddEntities(Gfx::Widgets::C3DFrame& a_frame, const XMLNode& a_category, const XMLNode& a_model)
{
    const std::string category = a_category.Attribute("id", "");
    const std::string model = a_model.Attribute("id", "");
    for (const auto& entity : {Models().GetModelColoured(category, model, ""),
                               Models().GetModelColoured(category, model, Gfx::Colours::Lime, "lime")})
    {
        if (entity)
        {
            a_frame.AddEntity(entity);
        }
    }
    for (const XMLNode& variant : a_model.Children())
    {
        const auto entity = Models().GetModelVariant(category, model, variant.Attribute("id", ""), "textured");
        auto* const textured = dynamic_cast<Gfx::CTexturedEntity*>(entity.Get());
        // Without a texture it must not be drawn.
        if (textured != nullptr && textured->GetTexturePtr())
        {
            a_frame.AddEntity(entity);
        }
    }
}

} // namespace

void GfxFuzz::SetUp()
{
    Data().WriteRequiredFiles();
    Data().Write(k_file, "<Models/>");
    // Small ones, and what can't be loaded.
    for (const char* file : {"House/Glass.obj", "House/Vent.obj", "House/Vent.png", "Water/Pipe.obj", "Water/Pipe.png"})
    {
        const std::filesystem::path path = Data().Path() + "Models/" + file;
        std::filesystem::create_directories(path.parent_path());
        std::filesystem::create_symlink(std::string(GFX_FUZZ_DATA) + "Models/" + file, path);
    }
    Data().Write("Models/House/Empty.obj", "");
    Data().Write("Models/House/Bad.png", "no picture");
    CStage::Make(Data().Path());
    Models().Initialise(Data().Path());
}

void GfxFuzz::Try(std::string_view a_input)
{
    Core::IO::XMLDocument document;
    if (!document.ParseText(a_input, k_file))
    {
        return;
    }
    const CCleaner cleaner;
    Load(a_input);
    const XMLNode* const models = document.Section("Models");
    if (models == nullptr)
    {
        return;
    }
    auto* const frame = new Gfx::Widgets::C3DFrame("frame", 0, 0, 100, 100, true);
    CStage::Widgets().AddWidget(GfxTest::WidgetPtr(frame));
    for (const XMLNode& category : models->Children())
    {
        for (const XMLNode& model : category.Children())
        {
            AddEntities(*frame, category, model);
        }
    }
    CStage::Click(50, 50);
    CStage::Paint();
    // The scene outlives its models.
    Load("<Models/>");
    CStage::Paint();
}
