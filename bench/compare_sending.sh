#!/usr/bin/env bash
# Sends a file of 25 MB to 10 addresses, one message each, through an SMTP server on the
# loopback (the tests' aiosmtpd server), and uploads the same messages with curl to the same
# server in the same run. Prints both times, their ratio and our peak memory. Builds nothing:
# pass the build folder that holds bench/bench_sending (a Release build with
# -DQUORVANE_BUILD_BENCH=ON).
#
# Needs the Debian packages python3-aiosmtpd and curl.
#
# Run: bench/compare_sending.sh BUILD_FOLDER [MEGABYTES] [ADDRESSES]
set -euo pipefail
here="$(cd "$(dirname "${BASH_SOURCE[0]}")" && pwd)"
top="$(cd "$here/.." && pwd)"
build="${1:-$top/build/bench}"
megabytes="${2:-25}"
count="${3:-10}"
bench="$build/bench/bench_sending"
[[ -x "$bench" ]] || { echo "no $bench: build the target bench_sending first" >&2; exit 2; }
command -v curl >/dev/null || { echo "curl missing: apt-get install curl" >&2; exit 2; }

dir=$(mktemp -d)
exec 3> >(/usr/bin/python3 "$top/tests/support/smtp_server.py" serve "$dir/maildir" > "$dir/ready" 2>/dev/null)
trap 'exec 3>&-; sleep 1; rm -rf "$dir"' EXIT
for _ in $(seq 100); do grep -q ready "$dir/ready" 2>/dev/null && break; sleep 0.1; done
port=$(awk '{ print $2 }' "$dir/ready")

head -c $((megabytes * 1024 * 1024)) /dev/urandom > "$dir/photo.jpg"
ours=$("$bench" "$port" "$dir/photo.jpg" "$count")

# The same message, written once, uploaded once for each address.
/usr/bin/python3 - "$dir/photo.jpg" "$dir/message.eml" <<'PY'
import sys
import email.policy
from email.message import EmailMessage
msg = EmailMessage()
msg["From"], msg["To"], msg["Subject"] = "me@example.org", "r@example.org", "Send File from me@example.org"
msg.set_content("Note")
with open(sys.argv[1], "rb") as f:
    msg.add_attachment(f.read(), maintype="image", subtype="jpeg", filename="photo.jpg")
with open(sys.argv[2], "wb") as out:
    out.write(msg.as_bytes(policy=email.policy.SMTP))
PY
start=$(date +%s%N)
for ((i = 0; i < count; i++)); do
    curl -s --url "smtp://127.0.0.1:$port" --mail-from me@example.org \
        --mail-rcpt "r$i@example.org" --upload-file "$dir/message.eml"
done
curl_ms=$(( ($(date +%s%N) - start) / 1000000 ))
ms=$(echo "$ours" | sed -n 's/.*ms=\([^ ]*\).*/\1/p')
kb=$(echo "$ours" | sed -n 's/.*peak_kb=\([^ ]*\).*/\1/p')
printf '%s MB to %s addresses: ours %.0f ms, curl %s ms, ratio %.2f, our peak %.1f MB\n' \
    "$megabytes" "$count" "$ms" "$curl_ms" "$(awk -v a="$ms" -v b="$curl_ms" 'BEGIN { print a / b }')" \
    "$(awk -v k="$kb" 'BEGIN { print k / 1024 }')"
