#include "program/Velluto.h"

#include "program/FrameCommands.h"

namespace velluto {

Velluto::Velluto(Ports ports, Face &face)
    : app(ports, face), midi(app), files(app), recall(app, midi, files), banks{recall, {}, {}}, keyboard(midi), notes(app), player(app)
{
    files.services.SelectOnInstrument = [this](Form &window, int row) { SelectOnInstrument(recall, window, row); };
    files.services.SelectFromOverview = [this](Form &window, int list) { SelectFromOverview(recall, window, list); };
    AttachHandlers(*this);
}

Velluto::~Velluto() = default;

} // namespace velluto
