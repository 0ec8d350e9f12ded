// The sentences for what check finds. %1, %2 and %3 stand for the finding's numbers.
#include "tool/Findings.h"

#include <array>

namespace velluto::tool {

namespace {

struct FaultWords {
    Fault fault = Fault::TooShort;
    TwoTexts text;
};

constexpr std::array<FaultWords, 22> kWords{{
    {Fault::TooShort, {"il file ha solo %1 byte: il suo inizio ne occupa 36", "the file has only %1 bytes: its head alone takes 36"}},
    {Fault::TooLong,
     {"il file ha %1 byte: nessun file dello strumento è così lungo", "the file has %1 bytes: no file of the instrument is that long"}},
    {Fault::NoMark, {"non è un file dello strumento: manca \"KORF\"", "not a file of the instrument: \"KORF\" is missing"}},
    {Fault::LaterInstrument,
     {"scritto da uno strumento più recente della famiglia: Velluto non lo legge",
      "written by a later instrument of the family: Velluto does not read it"}},
    {Fault::HeadByte, {"l'inizio del file ha il byte %1 dove va %2", "the head of the file has the byte %1 where %2 belongs"}},
    {Fault::DirectoryLength,
     {"la lunghezza dell'elenco, %1, non è un multiplo di 24", "the length of the directory, %1, is no multiple of 24"}},
    {Fault::DirectoryBeyond,
     {"l'elenco conta %1 elementi, più di quanti ne entrino nel file", "the directory tells of %1 items, more than the file has room for"}},
    {Fault::TooManyItems, {"l'elenco conta %1 elementi, la banca ne tiene %2", "the directory tells of %1 items, the bank holds %2"}},
    {Fault::EndMissing,
     {"la fine manca: il file è tagliato, o il suo indice è rovinato", "the end is missing: the file is cut off, or its index is damaged"}},
    {Fault::BytesBehind, {"%1 byte di troppo dopo la fine del file", "%1 bytes too many stand behind the end of the file"}},
    {Fault::OuterLength, {"la lunghezza scritta qui è %1, quella giusta %2", "the length written here is %1, the right one is %2"}},
    {Fault::Count,
     {"l'ultimo numero è %1 invece di %2: non corrisponde all'elenco", "the last number is %1 and not %2: it does not fit the directory"}},
    {Fault::IndexByte, {"l'indice ha il byte %1 dove va %2", "the index has the byte %1 where %2 belongs"}},
    {Fault::BodyOutside,
     {"l'indice mette l'elemento %1 all'offset %2, fuori dal suo spazio",
      "the index puts item %1 at offset %2, outside the room for items"}},
    {Fault::BodyGap, {"il primo elemento comincia all'offset %1 invece che a %2", "the first item begins at offset %1 and not at %2"}},
    {Fault::BodyOrder,
     {"l'elemento %1 comincia all'offset %2, prima di quello che lo precede",
      "item %1 begins at offset %2, before the one in front of it"}},
    {Fault::PlaceBeyond, {"l'elemento %1 ha il posto %2, la banca ne ha %3", "item %1 has place %2, the bank has %3"}},
    {Fault::PlaceShared, {"l'elemento %1 ha il posto %2, lo stesso dell'elemento %3", "item %1 has place %2, the same as item %3"}},
    {Fault::PlaceOrder,
     {"l'elemento %1 ha il posto %2, ma viene dopo il posto %3: l'ordine è sbagliato",
      "item %1 has place %2, but comes after place %3: the order is wrong"}},
    {Fault::StsMissing,
     {"l'elemento %1, posto %2, non ha accanto il suo STS o il suo Style", "item %1, place %2, has no STS or no Style beside it"}},
    {Fault::StsUneven, {"%1 elementi non si dividono in Style e altrettanti STS", "%1 items do not divide into Styles and as many STS"}},
    {Fault::StsOrder,
     {"l'STS %1 ha il posto %2, il suo Style il posto %3", "the STS that is item %1 has place %2, its Style has place %3"}},
}};

} // namespace

std::string Sentence(const Finding &finding, const Speaker &speaker)
{
    for (const FaultWords &words : kWords) {
        if (words.fault == finding.fault) {
            return speaker.Say(words.text, {std::to_string(finding.n), std::to_string(finding.m), std::to_string(finding.k)});
        }
    }
    return {};
}

} // namespace velluto::tool
