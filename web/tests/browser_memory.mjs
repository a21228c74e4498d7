// Memory that the processes of a browser have for themselves.
import { readdirSync, readFileSync } from "node:fs";

function read(path) {
  try {
    return readFileSync(path, "latin1");
  } catch {
    return ""; // It has ended.
  }
}

/** MB of all processes that this one has started, and of those among them that show pages. */
export function browserMemory() {
  const parents = new Map();
  for (const pid of readdirSync("/proc").filter((name) => /^[0-9]+$/.test(name))) {
    const stat = read(`/proc/${pid}/stat`);
    parents.set(pid, stat.slice(stat.lastIndexOf(")") + 2).split(" ")[1]);
  }
  const isOurs = (pid) => pid !== undefined && (parents.get(pid) === String(process.pid) || isOurs(parents.get(pid)));
  const memory = { all: 0, pages: 0 };
  for (const pid of parents.keys()) {
    if (!isOurs(pid)) continue;
    const own = Number(/^Pss:\s+(\d+)/m.exec(read(`/proc/${pid}/smaps_rollup`))?.[1] ?? 0) / 1024;
    memory.all += own;
    if (read(`/proc/${pid}/cmdline`).includes("--type=renderer")) memory.pages += own;
  }
  return memory;
}

/** Watches the memory until it is asked for the most that was more than at the start. */
export function watchMemory() {
  const start = browserMemory();
  const most = { all: 0, pages: 0 };
  const look = () => {
    const now = browserMemory();
    for (const part of ["all", "pages"]) most[part] = Math.max(most[part], now[part] - start[part]);
    return { all: now.all - start.all, pages: now.pages - start.pages };
  };
  const timer = setInterval(look, 200);
  return {
    now: look,
    end() {
      look();
      clearInterval(timer);
      return most;
    },
  };
}
