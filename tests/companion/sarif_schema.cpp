#include "companion/sarif_schema.h"

#include <QProcess>

using namespace Qt::StringLiterals;

namespace {

constexpr auto validator = R"(
import json, os, sys, jsonschema
schema = json.load(open(sys.argv[1], encoding="utf-8"))
log = json.loads(sys.stdin.buffer.read().decode("utf-8"))
checker = jsonschema.FormatChecker()
faults = list(jsonschema.Draft4Validator(schema, format_checker=checker).iter_errors(log))
for fault in faults:
    print("/".join(map(str, fault.path)), fault.message[:300])
if os.path.basename(log["$schema"]) != os.path.basename(sys.argv[1]):
    print("another schema is named:", log["$schema"])
elif not faults:
    print("valid")
)"_L1;

} // namespace

QByteArray sarifFaults(const QByteArray &log)
{
    QProcess python;
    python.setProcessChannelMode(QProcess::MergedChannels);
    python.start(
        u"python3"_s,
        {u"-c"_s, validator, QStringLiteral(ORR_TEST_FOLDER "/data/sarif-2.1.0-rtm.5.json")});
    python.write(log);
    python.closeWriteChannel();
    python.waitForFinished(60'000);
    return python.readAll();
}
