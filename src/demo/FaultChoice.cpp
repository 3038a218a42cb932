#include "demo/FaultChoice.h"

#include <QCoreApplication>

namespace touchpanel::demo {
namespace {

QString tr(const char* text) { return QCoreApplication::translate("FaultChoice", text); }

}  // namespace

std::vector<FaultChoice> faultChoices() {
  using firmware::Fault;
  return {
      {Fault::None, tr("None"), tr("Answers every command as it should."), {}},
      {Fault::IgnoresCommand, tr("Ignores a command"),
       tr("Never answers one command; its reply stays the one before."), tr("Command code:"), 0, 255, 0x81,
       true},
      {Fault::WrongEcho, tr("Echoes wrongly"), tr("Answers with the code of another command."), {}},
      {Fault::WrongReplyClass,
       tr("Wrong kind of reply"),
       tr("Answers with a reply code of another class."),
       {}},
      {Fault::LateReply, tr("Answers late"),
       tr("Answers each command only when asked for the reply several times."), tr("Attempts:"), 1, 60, 10},
      {Fault::DiesAfterPackets, tr("Dies"),
       tr("Stops working after some packets, until it is plugged in again."), tr("Packets:"), 0, 1000, 20},
      {Fault::Stalls, tr("Refuses everything"), tr("Refuses every request."), {}},
      {Fault::GarbledReply, tr("Garbled replies"), tr("Its replies arrive with flipped bits."), {}},
      {Fault::ShortReply, tr("Short replies"), tr("Only the first bytes of each reply arrive."), tr("Bytes:"),
       0, 63, 8},
      {Fault::OddVersionLength, tr("Odd version"), tr("Its version has a length that nobody knows."), {}},
      {Fault::UnterminatedBarCode,
       tr("Endless bar code"),
       tr("Its bar code fills the reply without an end mark."),
       {}},
  };
}

}  // namespace touchpanel::demo
