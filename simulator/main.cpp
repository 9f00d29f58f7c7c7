// upssim: a UPS on a pseudo-terminal, for whoever develops or tests a monitor.

#include <fcntl.h>
#include <unistd.h>

#include <csignal>
#include <cstdio>
#include <exception>
#include <string>
#include <vector>

#include "simulator/command_log.h"
#include "simulator/control.h"
#include "simulator/control_commands.h"
#include "simulator/model_clock.h"
#include "simulator/options.h"
#include "simulator/poll_loop.h"
#include "simulator/serial_front.h"
#include "simulator/ups_model.h"

namespace {

using namespace simulator;

constexpr int kFailed = 1;
constexpr int kBadOptions = 2;

void PrintHelp() {
  std::printf(
      "usage: upssim [OPTION]...\n"
      "\n"
      "A UPS on a pseudo-terminal, to develop or test a monitor against. It answers Q1, F and I,\n"
      "obeys T, TL, Tn, CT, Q, Snn, SnnRmmmm and C, and models the battery, the output and the\n"
      "mains behind them. When it is ready it prints the path of the pseudo-terminal. SIGTERM,\n"
      "SIGINT or the command \"quit\" ends it; the link and the socket are then removed.\n"
      "\n"
      "Options, with their defaults in brackets:\n"
      "%s\n"
      "Control commands, one a line, over standard input or the control socket; each is answered\n"
      "with one line, \"ok\", \"error: ...\" or the state:\n"
      "%s\n"
      "Example:\n"
      "  upssim --link /tmp/ups/com1 --control /tmp/ups/control --log /tmp/ups/commands.log\n"
      "\n"
      "Exit status: 0 after an orderly end, 1 when something can't be opened, 2 for wrong "
      "options.\n",
      OptionHelp().c_str(), ControlCommands::Help().c_str());
}

/// Started without a standard stream, a file that is opened later would take its number.
void FillStandardStreams() {
  int fd = open("/dev/null", O_RDWR);
  while (fd >= 0 && fd <= STDERR_FILENO) fd = open("/dev/null", O_RDWR);
  if (fd > STDERR_FILENO) close(fd);
}

/// A client that goes away, or a start in the background of a terminal, is no reason to end.
void IgnoreStreamSignals() {
  for (const int signal : {SIGPIPE, SIGTTIN, SIGTTOU}) std::signal(signal, SIG_IGN);
}

void PrintReady(const std::string& path, const std::string& link) {
  const std::string name = link.empty() ? path : path + " as " + link;
  std::printf("upssim: %s\n", name.c_str());
  std::fflush(stdout);
}

void Run(const Options& options) {
  PollLoop loop;
  loop.StopOnSignals();
  UpsModel model(options.unit);
  LineFaults faults;
  CommandLog log(options.log);
  SerialFront front(loop, model, faults, log, options.link);
  ControlCommands commands(model, faults, [&loop] { loop.Stop(); });
  Control control(loop, commands);
  control.ServeStandardInput();
  if (!options.control.empty()) control.Listen(options.control);
  ModelClock clock(model, options.speed);
  PrintReady(front.Path(), options.link);
  loop.Run([&clock] { clock.CatchUp(); });
}

}  // namespace

int main(int argc, char** argv) {
  FillStandardStreams();
  IgnoreStreamSignals();
  try {
    const Options options = ParseOptions(std::vector<std::string>(argv + 1, argv + argc));
    if (options.help) {
      PrintHelp();
    } else {
      Run(options);
    }
    return 0;
  } catch (const OptionError& error) {
    std::fprintf(stderr, "upssim: %s\nTry 'upssim --help'.\n", error.what());
    return kBadOptions;
  } catch (const std::exception& error) {
    std::fprintf(stderr, "upssim: %s\n", error.what());
    return kFailed;
  }
}
