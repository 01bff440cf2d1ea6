"""remote.py EXAMPLE PROGRAM [ARGUMENT...]: works a program over its remote control as a bench script does, through
PyVISA, and measures what a query costs beside a bare echo."""
import importlib.util
import os
import signal
import socket
import statistics
import subprocess
import sys
import threading
import time

try:
    import pyvisa  # noqa: F401
    import pyvisa_py  # noqa: F401
except ImportError:
    print("No PyVISA with pyvisa-py: skipped")
    sys.exit(77)

# Sanitizers take time and memory of their own.
MEASURED = "TESSARINE_UNMEASURED" not in os.environ

spec = importlib.util.spec_from_file_location("tune", sys.argv[1])
tune = importlib.util.module_from_spec(spec)
spec.loader.exec_module(tune)


def start(address):
    command = sys.argv[2:] + ["--serve", address]
    program = subprocess.Popen(command, stdout=subprocess.PIPE, stderr=subprocess.PIPE, text=True)
    first = program.stdout.readline()
    assert first.startswith("serving\t"), first + program.stderr.read()
    return program, first.split("\t")[1].strip()


def round_trips(port, count=400):
    """Microseconds, the middle one of many."""
    with socket.create_connection(("127.0.0.1", port)) as line:
        line.setsockopt(socket.IPPROTO_TCP, socket.TCP_NODELAY, 1)
        times = []
        for _ in range(count):
            begin = time.perf_counter()
            line.sendall(b"LOCK?\n")
            line.recv(4096)
            times.append((time.perf_counter() - begin) * 1e6)
    return statistics.median(times)


def holdings(program, port):
    """Descriptors and pages of memory, once all that was asked before is answered."""
    round_trips(port, 10)
    with open(f"/proc/{program.pid}/statm") as file:
        return len(os.listdir(f"/proc/{program.pid}/fd")), int(file.read().split()[1])


def crowd_that_comes_and_goes(port, program):
    for turn in range(300):
        line = socket.create_connection(("127.0.0.1", port))
        line.sendall([b"*IDN?\n*IDN", b"GET / HTTP/1.1\r\n\r\n", b"\0\xff" * 40_000, b"CONT:CAT?\n" * 99][turn % 4])
        if turn % 4 == 3:
            line.shutdown(socket.SHUT_WR)  # and what is sent to it then finds nobody
        if turn % 2:
            line.setsockopt(socket.SOL_SOCKET, socket.SO_LINGER, b"\1\0\0\0\0\0\0\0")  # vanishes
        else:
            line.shutdown(socket.SHUT_WR)
            while line.recv(4096):
                pass
        line.close()
        if turn == 100:
            before = holdings(program, port)
    after = holdings(program, port)
    assert after[0] <= before[0] + 2 and (after[1] < before[1] + 100 or not MEASURED), (before, after)


def what_a_query_costs(port, program):
    # On one processor, as the scheduler's choice of two makes more of a difference than all else.
    one = {min(os.sched_getaffinity(0))}
    os.sched_setaffinity(0, one)
    os.sched_setaffinity(program.pid, one)
    echo = socket.create_server(("127.0.0.1", 0))
    if os.fork() == 0:
        line, _ = echo.accept()
        while data := line.recv(4096):
            line.sendall(data)
        os._exit(0)
    bare, idle = round_trips(echo.getsockname()[1]), round_trips(port)
    bench = tune.open_bench(port)
    bench.write("HOP:COUN 30000;DEL 1MS;INIT")
    hopping = round_trips(port)
    assert bench.query("HOP:STAT?;ABOR;:*OPC?") == "1;1"
    print(f"round trip: echo {bare:.0f} us, idle {idle:.0f} us, while a hop runs {hopping:.0f} us")
    assert not MEASURED or (idle <= 5 * bare and hopping <= 1000)


def main():
    program, address = start("[127.0.0.1]:0")
    watchdog = threading.Timer(100, program.kill)
    watchdog.start()
    port = int(address.rsplit(":", 1)[1])
    try:
        tune.main(port)
        crowd_that_comes_and_goes(port, program)
        what_a_query_costs(port, program)
        taken = subprocess.run(sys.argv[2:] + ["--serve", str(port)], capture_output=True, text=True)
        assert taken.returncode == 2 and taken.stderr.count("\n") == 1 and "Address already in use" in taken.stderr, taken
        tune.open_bench(port).write("CONT:CLIC 'Exit1'")
        assert program.wait(10) == 0, program.returncode
        assert program.stderr.read() == "" or not MEASURED

        program, address = start(f"0.0.0.0:{port}")  # though it was used just now
        assert f": anybody who reaches {address} over the network" in program.stderr.readline()
        program.send_signal(signal.SIGTERM)
        program.wait(10)
    finally:
        watchdog.cancel()
        program.kill()


main()
