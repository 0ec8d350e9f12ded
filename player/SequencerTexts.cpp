#include "player/SequencerTexts.h"

#include "app/Language.h"

#include <algorithm>
#include <array>
#include <string_view>

namespace velluto {

namespace {

using Why = Refusal::Why;

// %1 and %2 stand for the refusal's numbers.
struct SentenceOf {
    Why why{};
    TwoTexts text;
};

constexpr std::array kSentences = std::to_array<SentenceOf>({
    {Why::UnknownCommand, {"Il sequencer non conosce questo comando.", "The sequencer does not know this command."}},
    {Why::NoMemory, {"La memoria non è sufficiente.", "There is not enough memory."}},
    {Why::NoThread, {"Il sistema non ha posto per un altro thread.", "The system has no room for a further thread."}},
    {Why::NoFileOpen, {"Nessun file MIDI è aperto.", "No MIDI file is open."}},
    {Why::NotFound, {"Il file MIDI non si trova.", "The MIDI file cannot be found."}},
    {Why::NotReadable, {"Il file MIDI non si può leggere.", "The MIDI file cannot be read."}},
    {Why::TooLarge, {"Il file MIDI supera i %1 MB.", "The MIDI file is larger than %1 MB."}},
    {Why::NoMidiFile, {"Questo non è un file MIDI.", "This is not a MIDI file."}},
    {Why::HeaderShort,
     {"Il file MIDI è danneggiato: la sua intestazione è incompleta.", "The MIDI file is damaged: its header is cut short."}},
    {Why::UnknownFormat, {"Il file MIDI è di un formato sconosciuto (%1).", "The MIDI file is of an unknown format (%1)."}},
    {Why::CountOfTracks,
     {"Il file MIDI è danneggiato: un file di formato %1 con %2 tracce.", "The MIDI file is damaged: a file of format %1 with %2 tracks."}},
    {Why::NoTicks,
     {"Il file MIDI è danneggiato: non divide il quarto in tick.", "The MIDI file is damaged: it counts no ticks to a beat."}},
    {Why::NoFrameLength,
     {"Il file MIDI è danneggiato: conta il tempo in frame di durata sconosciuta.",
      "The MIDI file is damaged: it counts time in frames of no known length."}},
    {Why::TooManyTracks, {"Il file MIDI ha più di %1 tracce.", "The MIDI file has more than %1 tracks."}},
    {Why::TrackShort, {"Il file MIDI è danneggiato: la traccia %1 è incompleta.", "The MIDI file is damaged: track %1 is cut short."}},
    {Why::TrackMissing, {"Il file MIDI è danneggiato: manca la traccia %1 di %2.", "The MIDI file is damaged: track %1 of %2 is missing."}},
    {Why::SecondHeader, {"Il file MIDI è danneggiato: ha una seconda intestazione.", "The MIDI file is damaged: it has a second header."}},
    {Why::EndsInEvent,
     {"Il file MIDI è danneggiato: la traccia %1 finisce a metà di un evento.",
      "The MIDI file is damaged: track %1 ends in the middle of an event."}},
    {Why::NumberTooLong,
     {"Il file MIDI è danneggiato: la traccia %1 contiene un numero di più di quattro byte.",
      "The MIDI file is damaged: track %1 holds a number of more than four bytes."}},
    {Why::NoStatus,
     {"Il file MIDI è danneggiato: la traccia %1 contiene dati che non appartengono a un evento.",
      "The MIDI file is damaged: track %1 holds data that belong to no event."}},
    {Why::UnknownStatus,
     {"Il file MIDI è danneggiato: la traccia %1 contiene un evento che non può stare in un file.",
      "The MIDI file is damaged: track %1 holds an event that has no place in a file."}},
    {Why::HighData,
     {"Il file MIDI è danneggiato: la traccia %1 contiene un byte di dati oltre 127.",
      "The MIDI file is damaged: track %1 holds a data byte above 127."}},
    {Why::BadTempo,
     {"Il file MIDI è danneggiato: la traccia %1 contiene un tempo non valido.",
      "The MIDI file is damaged: track %1 holds a tempo that is none."}},
    {Why::BadEnd,
     {"Il file MIDI è danneggiato: la fine della traccia %1 non è vuota.",
      "The MIDI file is damaged: track %1 has an end that is not empty."}},
    {Why::EndMissing, {"Il file MIDI è danneggiato: la traccia %1 non ha una fine.", "The MIDI file is damaged: track %1 has no end."}},
    {Why::EndEarly,
     {"Il file MIDI è danneggiato: la traccia %1 continua dopo la sua fine.", "The MIDI file is damaged: track %1 goes on after its end."}},
    {Why::TooManyEvents, {"Il file MIDI ha più di %1 eventi.", "The MIDI file has more than %1 events."}},
    {Why::TooLong, {"Il file MIDI dura più di un giorno.", "The MIDI file lasts longer than a day."}},
});

void Insert(std::string &sentence, std::string_view place, std::uint64_t number)
{
    if (const std::size_t at = sentence.find(place); at != std::string::npos) {
        sentence.replace(at, place.size(), std::to_string(number));
    }
}

} // namespace

std::string Sentence(const Refusal &refusal, int linguaBase)
{
    const auto *const found = std::ranges::find(kSentences, refusal.why, &SentenceOf::why);
    if (found == kSentences.end()) {
        return refusal.words;
    }
    std::string sentence(found->text.In(linguaBase));
    Insert(sentence, "%1", refusal.n);
    Insert(sentence, "%2", refusal.m);
    return sentence;
}

} // namespace velluto
