#include "Core/Localisation/Manager.h"

#include "Core/Localisation/Asset.h"
#include "support/LogGuard.h"
#include "support/TemporaryDirectory.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <memory>
#include <string>
#include <vector>

namespace
{

using Core::SharedPtr;
using Core::Localisation::CAsset;
using Core::Localisation::CManager;
using Callback = Core::Functor<void>;

class LocalisationManagerTest : public testing::Test
{
protected:
    LocalisationManagerTest()
    {
        SetEnvironment("en");
        m_directory.Write("Localisation/de.xml", "<Localisation language=\"de\">\n"
                                                 "  <Text id=\"greeting\">Hallo</Text>\n"
                                                 "  <Text id=\"empty\"></Text>\n"
                                                 "  <Text id=\"twice\">eins</Text>\n"
                                                 "  <Text id=\"twice\">zwei</Text>\n"
                                                 "</Localisation>\n");
        m_directory.Write("Localisation/fr.xml",
                          "<Localisation language=\"fr\"><Text id=\"greeting\">Salut</Text></Localisation>");
        m_directory.Write("Localisation/notes.txt", "");
    }

    ~LocalisationManagerTest() override { CManager::Instance(nullptr); }

    static void SetEnvironment(const char* a_languages) { setenv("LANGUAGE", a_languages, 1); }

    std::unique_ptr<CManager> MakeInstance()
    {
        auto manager = std::make_unique<CManager>(m_directory.Path());
        CManager::Instance(manager.get());
        return manager;
    }

    GfxTest::CTemporaryDirectory m_directory;
};

TEST_F(LocalisationManagerTest, TheEnvironmentChoosesTheFirstLanguageThatThereIs)
{
    struct SCase
    {
        const char* environment;
        const char* language;
    };
    const SCase cases[] = {
        {"de", "de"},    {"de_AT.UTF-8", "de"}, {"pl:fr_CA:de", "fr"},        {"en_GB:de", "en"},
        {"pl:cs", "en"}, {"C", "en"},           {"../Localisation/de", "en"}, {"fr@euro", "fr"},
    };
    for (const SCase& example : cases)
    {
        SetEnvironment(example.environment);
        EXPECT_EQ(CManager(m_directory.Path()).Language(), example.language) << example.environment;
    }
    SetEnvironment("de");
    EXPECT_EQ(CManager(m_directory.Path() + "elsewhere/").Language(), "en");
}

TEST_F(LocalisationManagerTest, AssetsFollowTheLanguageAndShowUnknownKeys)
{
    const std::unique_ptr<CManager> manager = MakeInstance();
    const SharedPtr<CAsset> greeting = CAsset::Create("greeting");
    const SharedPtr<CAsset> unknown = CAsset::Create("unknown");
    const SharedPtr<CAsset> let = CAsset::Create("greeting");
    EXPECT_EQ(greeting->ToString(), "greeting");

    ASSERT_TRUE(manager->SetLanguage("de"));
    manager->DeregisterAsset(let.Get());
    manager->DeregisterAsset(nullptr);
    EXPECT_EQ(greeting->Id(), "greeting");
    EXPECT_EQ(greeting->ToString(), "Hallo");
    EXPECT_EQ(unknown->ToString(), "unknown");
    EXPECT_EQ(CAsset::Create("empty")->ToString(), "");
    EXPECT_EQ(CAsset::Create("twice")->ToString(), "zwei");

    ASSERT_TRUE(manager->SetLanguage("fr"));
    EXPECT_EQ(greeting->ToString(), "Salut");
    EXPECT_EQ(let->ToString(), "Hallo");
    ASSERT_TRUE(manager->SetLanguage("en"));
    EXPECT_EQ(greeting->ToString(), "greeting");
}

TEST_F(LocalisationManagerTest, AssetsAndManagersDieInAnyOrder)
{
    const SharedPtr<CAsset> lonely = CAsset::Create("greeting");
    EXPECT_EQ(lonely->ToString(), "greeting");
    SharedPtr<CAsset> left;
    {
        const std::unique_ptr<CManager> manager = MakeInstance();
        left = CAsset::Create("greeting");
        CAsset::Create("greeting").Reset();
        EXPECT_TRUE(manager->SetLanguage("de"));
        const std::unique_ptr<CManager> next = MakeInstance();
        EXPECT_TRUE(next->SetLanguage("fr"));
    }
    EXPECT_EQ(CManager::Instance(), nullptr);
    EXPECT_EQ(left->ToString(), "Hallo");
}

TEST_F(LocalisationManagerTest, AnUnknownLanguageChangesNothing)
{
    const std::unique_ptr<CManager> manager = MakeInstance();
    ASSERT_TRUE(manager->SetLanguage("de"));
    manager->AddUpdateCompletedCallback(Callback::Make([] { ADD_FAILURE() << "nothing has changed"; }));
    GfxTest::ExpectLog("3 (CManager) : No catalogue for the language pl: " + m_directory.Path() +
                       "Localisation/pl.xml");
    EXPECT_FALSE(manager->SetLanguage("pl"));
    GfxTest::ExpectLog("No catalogue for the language ../Localisation/de");
    EXPECT_FALSE(manager->SetLanguage("../Localisation/de"));
    GfxTest::ExpectLog("No catalogue for the language : ");
    EXPECT_FALSE(manager->SetLanguage(""));
    EXPECT_EQ(manager->Language(), "de");
    EXPECT_EQ(manager->Translate("greeting"), "Hallo");
}

TEST_F(LocalisationManagerTest, BrokenCataloguesAreReported)
{
    m_directory.Write("Localisation/it.xml", "<Localisation>\n<Text id='greeting'>Ciao</Localisation>");
    m_directory.Write("Localisation/es.xml", "<Texts/>");
    m_directory.Write("Localisation/nl.xml", "<Localisation>\n<Text>Hoi</Text>\n<Text id=''/><Word id='greeting'/>\n"
                                             "<Text id='greeting'>Hallo</Text></Localisation>");
    GfxTest::ExpectLog("it.xml:2:");
    SetEnvironment("it");
    CManager manager(m_directory.Path());
    EXPECT_EQ(manager.Language(), "it");
    EXPECT_EQ(manager.Translate("greeting"), "greeting");

    ASSERT_TRUE(manager.SetLanguage("de"));
    EXPECT_FALSE(manager.SetLanguage("it"));
    GfxTest::ExpectLog("es.xml: there is no element Localisation");
    EXPECT_FALSE(manager.SetLanguage("es"));
    EXPECT_EQ(manager.Language(), "de");
    EXPECT_EQ(manager.Translate("greeting"), "Hallo");

    GfxTest::ExpectLog("2 (CManager) : " + m_directory.Path() + "Localisation/nl.xml:2: skipping an element Text");
    GfxTest::ExpectLog("nl.xml:3: skipping an element");
    EXPECT_TRUE(manager.SetLanguage("nl"));
    EXPECT_EQ(GfxTest::CountLogs("skipping"), 3);
    EXPECT_EQ(manager.Translate("greeting"), "Hallo");
}

TEST_F(LocalisationManagerTest, CallbacksRunInOrderAfterTheAssetsAndMayChangeTheList)
{
    const std::unique_ptr<CManager> manager = MakeInstance();
    const SharedPtr<CAsset> asset = CAsset::Create("greeting");
    const SharedPtr<int> token(new int(0));
    std::string order;
    Callback::Signature* last = Callback::Make([&order] { order += "last "; });
    Callback::Signature* self = nullptr;
    self = Callback::Make(
        [&, token]
        {
            order += "self ";
            manager->RemoveUpdateCompletedCallback(self);
            manager->RemoveUpdateCompletedCallback(last);
            manager->AddUpdateCompletedCallback(Callback::Make([&order] { order += "added "; }));
            order += std::to_string(token.Count()) + " ";
        });
    manager->AddUpdateCompletedCallback(Callback::Make([&] { order += asset->ToString() + " "; }));
    manager->AddUpdateCompletedCallback(self);
    manager->AddUpdateCompletedCallback(self);
    manager->AddUpdateCompletedCallback(last);
    manager->AddUpdateCompletedCallback(nullptr);

    ASSERT_TRUE(manager->SetLanguage("de"));
    EXPECT_EQ(order, "Hallo self 2 ");
    EXPECT_EQ(token.Count(), 1U);
    order.clear();
    ASSERT_TRUE(manager->SetLanguage("de"));
    EXPECT_EQ(order, "Hallo added ");
}

TEST_F(LocalisationManagerTest, LanguagesAndEscapes)
{
    CManager manager(m_directory.Path());
    m_directory.Write("Localisation/.xml", "");
    EXPECT_EQ(manager.Languages(), (std::vector<std::string>{"de", "fr"}));
    EXPECT_TRUE(CManager(m_directory.Path() + "elsewhere/").Languages().empty());

    ASSERT_TRUE(manager.SetLanguage("de"));
    EXPECT_EQ(manager.ProcessEscapes("Images/%LANG%/Flag_%LANG%.png"), "Images/de/Flag_de.png");
    EXPECT_EQ(manager.ProcessEscapes("%LANG%LANG%%lang%"), "deLANG%%lang%");
    EXPECT_EQ(manager.ProcessEscapes(""), "");
}

class COwnTexts : public CManager
{
public:
    std::string_view Translate(std::string_view a_key) const override
    {
        return a_key == "greeting" ? std::string_view(m_greeting) : a_key;
    }

    void Greeting(const std::string& a_greeting)
    {
        m_greeting = a_greeting;
        UpdateCompleted();
    }

private:
    std::string m_greeting = "Hi";
};

TEST_F(LocalisationManagerTest, AnApplicationBringsItsOwnTexts)
{
    COwnTexts manager;
    CManager::Instance(&manager);
    const SharedPtr<CAsset> asset = CAsset::Create("greeting");
    int updates = 0;
    manager.AddUpdateCompletedCallback(Callback::Make([&updates] { ++updates; }));
    EXPECT_EQ(asset->ToString(), "Hi");
    manager.Greeting("Moin");
    EXPECT_EQ(asset->ToString(), "Moin");
    EXPECT_EQ(updates, 1);
}

} // namespace
