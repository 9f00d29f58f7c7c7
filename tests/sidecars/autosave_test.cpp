// The saves before a shutdown, and the hint that they can be set up, as processes.
#include <unistd.h>

#include "sidecars/sidecar_fixture.h"

namespace varek {
namespace {

class AutosaveTest : public test::SidecarTest {
 protected:
  AutosaveTest() : SidecarTest({"Autosave", "ShowAutoSave"}) {}

  /// Runs `lines`, then the program; what its log says, without the times.
  std::string Log(const std::string& lines, const std::string& limits = "") const {
    return Shell(lines + "\n" + limits +
                 " timeout 60 ./Autosave; cut -c21- autosave.log; rm autosave.log");
  }
};

TEST_F(AutosaveTest, WhatIsTrustedRunsInOrderAndTheRestIsToldOf) {
  EXPECT_EQ(Log(""), "nothing to run in autosave.d\n");
  EXPECT_EQ(Log(R"sh(
job 20-b 'echo b >>order'; job 10-a 'echo a >>order; exit 3'; job 9-c 'kill -9 $$'
job B 'echo B >>order'; job a 'echo "$#" >>order; cat >>order'
job 30-open 'echo bad >>order'; chmod 775 autosave.d/30-open
job 31-open 'echo bad >>order'; chmod 757 autosave.d/31-open
job 32-plain 'echo bad >>order'; chmod 644 autosave.d/32-plain
for name in .hidden backup~ old.dpkg-dist; do job $name 'echo bad >>order'; done
mkdir autosave.d/33-folder; ln -s /bin/true autosave.d/34-link
echo true >autosave.d/35-headless; chmod 755 autosave.d/35-headless)sh"),
            "30-open: not run, it can be written by others\n"
            "31-open: not run, it can be written by others\n"
            "34-link: not run, it is a link\n"
            "10-a: started\n10-a: ended with status 3\n"
            "20-b: started\n20-b: ended with status 0\n"
            "35-headless: started\n35-headless: can't be started: Exec format error\n"
            "9-c: started\n9-c: ended by signal 9\n"
            "B: started\nB: ended with status 0\n"
            "a: started\na: ended with status 0\n");
  EXPECT_EQ(Shell("cat order"), "a\nb\nB\n0\n");
}

TEST_F(AutosaveTest, AFolderThatOthersCouldFillIsRefused) {
  const std::string refused = ": nothing is run, the folder ";
  const auto log = [&](const std::string& lines) {
    const std::string text = Log("rm -rf autosave.d bad; job 10-a 'echo bad'\n" + lines);
    return text.substr(std::min(text.size(), text.find(refused)));
  };
  const std::string end = "\nnothing to run in autosave.d\n";
  EXPECT_EQ(log("chmod 777 autosave.d"), refused + "can be written by others" + end);
  EXPECT_EQ(log("mv autosave.d away; ln -s away autosave.d"), refused + "is a link" + end);
  if (geteuid() != 0) return;
  EXPECT_EQ(log("chown 65534 autosave.d"), refused + "belongs to another user" + end);
  EXPECT_EQ(Log("chown 0 autosave.d; chown 65534 autosave.d/10-a"),
            "10-a: not run, it belongs to another user\nnothing to run in autosave.d\n");
}

TEST_F(AutosaveTest, WhatTakesTooLongIsStoppedWithAllThatItStarted) {
  EXPECT_EQ(Log(R"sh(
job 1-deaf 'sh -c "trap \"echo saved >>order; exit\" TERM; while :; do sleep 0.1; done" 2>&- &
trap "" TERM; sh -c "echo \$\$ >deaf; while :; do sleep 1; done"'
job 2-next 'echo next >>order')sh",
                "VAREK_AUTOSAVE_JOB=1"),
            "1-deaf: started\n1-deaf: stopped, it took longer than 1 s\n"
            "2-next: started\n2-next: ended with status 0\n");
  EXPECT_EQ(Shell("cat order; await '! cat /proc/$(cat deaf)/cmdline | tr -d \"\\0\" | grep -q .'"),
            "saved\nnext\n");
  EXPECT_EQ(Log("", "VAREK_AUTOSAVE_JOB=soon VAREK_AUTOSAVE_TOTAL=1"),
            "VAREK_AUTOSAVE_JOB: not a number from 1 to 3600, 30 is taken\n"
            "1-deaf: started\n1-deaf: stopped, it took longer than 1 s\n"
            "2-next: not run, the time for all is over\n");
}

TEST_F(AutosaveTest, ASecondSaveLeavesTheFirstAlone) {
  EXPECT_EQ(Log(R"sh(
job 1-long 'touch begun; while [ ! -e end ]; do sleep 0.1; done'
./Autosave & await '[ -e begun ]'; trap 'touch end; wait; cut -c21- autosave.log' EXIT)sh"),
            "1-long: started\nanother save is still running\n1-long: ended with status 0\n");
}

TEST_F(AutosaveTest, TheHintIsGivenOnceInASession) {
  EXPECT_EQ(Shell(R"sh(
display
hint() { ./ShowAutoSave & hint=$!; await '[ $(windows) -eq 1 ] || ! kill -0 $hint 2>/dev/null'
         echo $1 $(windows); kill $hint 2>/dev/null; wait $hint; }
QT_QPA_PLATFORM=offscreen ./ShowAutoSave
export XDG_SESSION_ID=1; hint first; hint again
export XDG_SESSION_ID=2; hint session
export XDG_SESSION_ID=3; job 10-a true; seq 9 >config.qmz; echo T >>config.qmz; hint ready
chmod 644 autosave.d/10-a; hint idle
export XDG_SESSION_ID=4; touch ShowAutoSave.off; hint silenced
)sh"),
            "first 1\nagain 0\nsession 1\nready 0\nidle 1\nsilenced 0\n");
}

}  // namespace
}  // namespace varek
