// The warning window from outside; what a copy shows it also leaves on standard error.
#include <gmock/gmock.h>

#include "sidecars/sidecar_fixture.h"

namespace varek {
namespace {

using testing::EndsWith;

class AlertTest : public test::SidecarTest {
 protected:
  AlertTest() : SidecarTest({"alert"}) {}
};

TEST_F(AlertTest, WithoutADisplayTheTextIsLogged) {
  const std::string longText(3000, 'x');
  const struct {
    std::string arguments;
    std::string said;  // the end of it
    int status;
  } kCases[] = {
      {"", "UPS and the text directly behind it", 1},
      {"UPS", "there is no text behind UPS", 1},
      {"\"$(printf 'UPS \\n\\t')\"", "there is no text behind UPS", 1},
      {"'Mains power failed'", "does not begin with UPS", 1},
      {"UPSMains power", "UPS and the text directly behind it", 1},
      {"'UPSMains power failed'", " UPS: Mains power failed", 0},
      {"UPS市電中斷", " UPS: 市電中斷", 0},
      {"\"$(printf 'UPSa\\033[31mb\\r\\nc\\377d')\"", " UPS: a [31mb  c\uFFFDd", 0},
      {"UPS" + longText, " UPS: " + longText.substr(0, 2000) + "...", 0},
      {"UPS$(printf '\\342\\200\\256')txt.exe", " UPS: txt.exe", 0},
  };
  for (const auto& one : kCases) {
    EXPECT_THAT(Shell("timeout 60 ./alert " + one.arguments + "; echo $?"),
                EndsWith(one.said + "\n" + std::to_string(one.status) + "\n"))
        << one.arguments;
  }
  EXPECT_THAT(Shell("DISPLAY=:65000 timeout 60 ./alert UPSnowhere"), EndsWith(" UPS: nowhere\n"));
}

TEST_F(AlertTest, ManyAtOnceShareOneWindow) {
  EXPECT_EQ(Shell(R"sh(
display
for i in $(seq 20); do timeout 60 ./alert "UPSevent $i" 2>said.$i & pids="$pids $!"; done
await '[ $(cat said.* | wc -l) -ge 20 ]'
for i in $(seq 20); do [ $(cat said.* | grep -c "UPS: event $i\$") -eq 1 ] || echo "event $i"; done
echo $(find . -name 'said.*' -size +0 | wc -l) copy with $(windows) window
kill $pids 2>/dev/null
)sh"),
            "1 copy with 1 window\n");
}

TEST_F(AlertTest, TheWindowGrowsWithItsLinesUpToALimit) {
  EXPECT_EQ(Shell(R"sh(
display
timeout 60 ./alert UPSone 2>/dev/null & first=$!
await '[ $(windows) -eq 1 ]'; one=$(height)
./alert UPStwo
await '[ $(height) -gt $one ]'; two=$(height)
for i in $(seq 30); do ./alert "UPS$(seq -s ' ' 400)"; done
await '[ $(height) -gt $two ]'
[ $(height) -lt 600 ] || echo "too high: $(height)"
[ $(windows) -eq 1 ] || echo "windows: $(windows)"
kill $first; wait $first; echo $?
)sh"),
            "0\n");
}

/// Either the first still takes the text, or the second has a window of its own.
TEST_F(AlertTest, NothingIsLostWhileTheFirstClosesOrHangsOrIsKilled) {
  EXPECT_EQ(Shell(R"sh(
display
for signal in TERM KILL STOP TERM; do
  ./alert UPSfirst 2>>said & first=$!
  await 'grep -q first said'
  kill -$signal $first; ./alert UPSsecond 2>>said & second=$!
  sleep 1; kill -KILL $first 2>/dev/null
  await 'grep -q second said'
  kill $second; wait $first $second
  cut -d ' ' -f 4 said; rm said
done
)sh"),
            "first\nsecond\nfirst\nsecond\nfirst\nsecond\nfirst\nsecond\n");
}

}  // namespace
}  // namespace varek
