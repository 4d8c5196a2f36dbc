#!/usr/bin/env bash
# scripts/scramble: the form it writes, and the mistakes it must not let through.
set -euo pipefail

scramble=$(cd "$(dirname "${BASH_SOURCE[0]}")/.." && pwd)/scramble
failures=0

complain() {
    echo "scramble: $*"
    failures=$((failures + 1))
}

# accepts TITLE SOURCE RESULT: both texts in printf notation; values of the result unscrambled again.
accepts() {
    local found expected
    # shellcheck disable=SC2059
    found=$(printf "$2" | "$scramble" | perl -pe '
        s/\r\n\z/\n/ or die "no CR LF";
        s{^([^=\[]*=)(.*)}{my ($key, $value) = ($1, $2); $key . join "", map { chr(ord($_) - 12) } split //, $value}e')
    # shellcheck disable=SC2059
    expected=$(printf "$3")
    [ "$found" = "$expected" ] || complain "$1: got
$found"
}

# refuses SOURCE PART-OF-MESSAGE
refuses() {
    local message
    # shellcheck disable=SC2059
    if message=$(printf "$1" | "$scramble" 2>&1 >/dev/null); then
        complain "accepted: $1"
    elif [[ $message != *"$2"* ]]; then
        complain "wrong message for: $1: $message"
    fi
}

accepts "numbers, counts and comments" \
    '; comment\n\n[SETTINGS]\nUPDATE-FILE-NUMBER = 12\n[SAFI]\n+ SAFIT=Adware.X\tSAFIS=a b*.dll\n+ SAFITD=Y\tSAFISD=%%WIN%%\\y=z\n+ SAFIT=Z\tSAFIS=z\n' \
    '[SETTINGS]\nUPDATE-FILE-NUMBER=12\n[SAFI]\n0SAFIT=Adware.X\n0SAFIS=a b*.dll\n0SAFITD=Y\n0SAFISD=%%WIN%%\\y=z\n1SAFIT=Z\n1SAFIS=z\n[NTOT]\nSAFITNUM=2\nSAFITDNUM=1'
accepts "a section that comes back, numbers of one's own, CR LF" \
    '[TAFO]\r\n0TAFOT=A\r\n0TAFOS=a\r\n[SETTINGS]\r\nK=v\r\n[tafo]\r\n+ TAFOT=B\tTAFOS=b\r\n' \
    '[TAFO]\n0TAFOT=A\n0TAFOS=a\n1TAFOT=B\n1TAFOS=b\n[SETTINGS]\nK=v\n[NTOT]\nTAFOTNUM=2'
accepts "count keys that follow no rule" \
    '[HAFI]\n+ HAFITD=A\tHAFISD=a\n[REGV]\n+ REGVT=A\tREGVK=k\tREGVV=v\n[REGS]\n+ REGST=A\tREGSK=k\n[MEMA]\n+ MEMAT=A\tMEMAF=f\n[REGK]\n+ REGKT=A\tREGKK=k\n[REGKO]\n+ REGKTO=A\tREGKKO=k\n[REMO]\n+ REMENT=x\n' \
    '[HAFI]\n0HAFITD=A\n0HAFISD=a\n[REGV]\n0REGVT=A\n0REGVK=k\n0REGVV=v\n[REGS]\n0REGST=A\n0REGSK=k\n[MEMA]\n0MEMAT=A\n0MEMAF=f\n[REGK]\n0REGKT=A\n0REGKK=k\n[REGKO]\n0REGKTO=A\n0REGKKO=k\n[REMO]\n0REMENT=x\n[NTOT]\nHAFITDDNUM=1\nREGVKNUM=1\nREGSKNUM=1\nMEMAFNUM=1\nREGKKNUM=1\nREGKKONUM=1'

[ "$(printf '[S]\nk=\xf3 Az\n' | "$scramble" | od -An -tx1 | tr -d ' \n')" = 5b535d0d0a6b3dff2c4d860d0a ] ||
    complain "bytes of a scrambled value are wrong"

refuses '[S]\nk=\xf4\n' 'line 2: byte 244'
refuses '[SAFI]\n+ SAFIT=A\tSAFIS=\n' 'line 2: empty value'
refuses '[SAFI]\n+ SAFIT=A\n' 'lacks 0SAFIS'
refuses '[SAFI]\n0SAFIT=A\n0SAFIS=a\n2SAFIT=C\n2SAFIS=c\n' 'lacks 1SAFIT'
refuses '[SAFI]\n+ SAFIT=A\tSAFISD=a\n' 'does not belong'
refuses '[SAFI]\n+ TAFIT=A\tTAFIS=a\n' 'has no key TAFIT'
refuses '[S]\nk=1\nK=2\n' 'line 3: K appears twice'
refuses '[NTOT]\nSAFITNUM=1\n' 'NTOT'
refuses 'k=1\n' 'before the first section'

exit $((failures > 0))
