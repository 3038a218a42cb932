#include "demo/FaultChoice.h"

#include <QCoreApplication>

namespace touchpanel::demo {
namespace {

struct FaultTexts {
  Q_DECLARE_TR_FUNCTIONS(FaultTexts)
};

}  // namespace

std::vector<FaultChoice> faultChoices() {
  using firmware::Fault;
  return {
      {Fault::None, FaultTexts::tr("None"), FaultTexts::tr("Answers every command as it should.")},
      {Fault::IgnoresCommand, FaultTexts::tr("Ignores a command"),
       FaultTexts::tr("Never answers one command; its reply stays the one before."),
       FaultArgument{FaultTexts::tr("Code of the command"), QStringLiteral("0x"), {}, 0, 0xFF, 0x81, 16}},
      {Fault::WrongEcho, FaultTexts::tr("Echoes wrongly"),
       FaultTexts::tr("Answers with the code of another command.")},
      {Fault::WrongReplyClass, FaultTexts::tr("Wrong kind of reply"),
       FaultTexts::tr("Answers with a reply code of another class.")},
      {Fault::LateReply, FaultTexts::tr("Answers late"),
       FaultTexts::tr("Answers each command only when asked several times."),
       FaultArgument{FaultTexts::tr("Times it must be asked"), {}, FaultTexts::tr(" times"), 1, 60, 10}},
      {Fault::DiesAfterPackets, FaultTexts::tr("Dies"),
       FaultTexts::tr("Stops working after some packets, until it is plugged in again."),
       FaultArgument{
           FaultTexts::tr("Packets that it still answers"), {}, FaultTexts::tr(" packets"), 0, 999, 20}},
      {Fault::Stalls, FaultTexts::tr("Refuses everything"), FaultTexts::tr("Refuses every request.")},
      {Fault::GarbledReply, FaultTexts::tr("Garbled replies"),
       FaultTexts::tr("Its replies arrive with flipped bits.")},
      {Fault::ShortReply, FaultTexts::tr("Short replies"),
       FaultTexts::tr("Only the first bytes of each reply arrive."),
       FaultArgument{FaultTexts::tr("Bytes that arrive"), {}, FaultTexts::tr(" bytes"), 0, 63, 8}},
      {Fault::OddVersionLength, FaultTexts::tr("Odd version"),
       FaultTexts::tr("Its version has a length that no rule covers.")},
      {Fault::UnterminatedBarCode, FaultTexts::tr("Endless bar code"),
       FaultTexts::tr("Its bar code fills the reply without an end mark.")},
  };
}

}  // namespace touchpanel::demo
