#include "app/frmLingua.h"

#include "app/Catalogue.h"

namespace velluto {

namespace {

// Twips.
constexpr Place kDialogPlace{0, 0, 5400, 2700};
constexpr Place kQuestionPlace{240, 240, 4920, 300};
constexpr Place kItalianPlace{600, 690, 4200, 330};
constexpr Place kEnglishPlace{600, 1080, 4200, 330};
constexpr Place kOkPlace{2040, 1620, 1320, 405};

} // namespace

frmLingua::frmLingua(Modulo1 &app) : Form("frmLingua"), app_(app)
{
    caption = std::string(kProgramTitle);
    place = kDialogPlace;
    Label1.caption = "Scegliere una lingua / Choose a language";
    Label1.place = kQuestionPlace;
    Option1[0].caption = "Italiano";
    Option1[0].place = kItalianPlace;
    Option1[1].caption = "English";
    Option1[1].place = kEnglishPlace;
    CommOK.caption = "&OK";
    CommOK.place = kOkPlace;
    for (OptionButton &option : Option1) {
        option.Click = [this, i = option.index()] { Option1_Click(i); };
    }
    CommOK.Click = [this] { CommOK_Click(); };
}

void frmLingua::Form_Load()
{
    confirmed_ = false;
    app_.StartAborted = false;
    Option1[0].value = true;
}

void frmLingua::Form_Unload()
{
    if (!confirmed_) {
        app_.StartAborted = true;
    }
}

void frmLingua::Option1_Click(int index)
{
    app_.settings.Lingua = index == 0 ? Language::Italian : Language::English;
}

void frmLingua::CommOK_Click()
{
    if (app_.settings.Lingua != 0) {
        confirmed_ = true;
        app_.face.CloseModal(*this);
    }
}

} // namespace velluto
