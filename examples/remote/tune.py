#!/usr/bin/env python3
"""Tunes an ADF4113, checks its lock and hops, over the program's remote control:

    tessarine-virtual --serve 5025
    ./tune.py [PORT]
"""
import sys

import pyvisa


def open_bench(port):
    bench = pyvisa.ResourceManager("@py").open_resource(f"TCPIP::127.0.0.1::{port}::SOCKET")
    bench.read_termination = bench.write_termination = "\n"
    bench.timeout = 10_000
    return bench


def check(bench):
    """Raises the oldest error that the bench has not told yet."""
    error = bench.query("SYSTem:ERRor?")
    if not error.startswith("0,"):
        raise RuntimeError(error)


def main(port):
    bench = open_bench(port)
    print(bench.query("*IDN?"))
    if bench.query("SYSTem:PORT?") == "NONE":
        bench.write("SYSTem:PORT LPT")
    bench.write('MODel "ADF4113"')
    bench.write('REFerence 10MHZ; STEP 200KHZ; PREScaler "8/9"')

    for megahertz in (900, 900.2, 905):
        bench.write(f"FREQuency {megahertz}MHZ; LOAD")
        check(bench)
        locked, output = bench.query("LOCK?; FREQuency:ACTual?").split(";")
        print(f"{megahertz} MHz: output {output} Hz, lock {locked}")

    bench.write("HOP:FREQuency1 900MHZ; FREQuency2 900.2MHZ; COUNt 5; DELay 20MS; INITiate")
    print("hopping:", bench.query("HOP:STATe?"))
    bench.query("*OPC?")  # comes when the hop is over
    print("hopping:", bench.query("HOP:STATe?"))
    check(bench)
    bench.close()


if __name__ == "__main__":
    main(int(sys.argv[1]) if len(sys.argv) > 1 else 5025)
