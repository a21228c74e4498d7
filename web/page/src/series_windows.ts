// Windows of a series for its plot: what is known comes at once, and a finer one once the view rests.
import type { FileAsker } from "./file_worker.js";
import type { SeriesWindow, WindowChoice } from "./protocol.js";

const rest = 80; // milliseconds

export class SeriesWindows {
  private last = new AbortController();

  constructor(
    private readonly asker: FileAsker,
    private readonly onFiner: (window: SeriesWindow) => void,
  ) {}

  async ask(choice: WindowChoice): Promise<SeriesWindow> {
    this.last.abort();
    const { signal } = (this.last = new AbortController());
    const window = await this.asker.ask("window", choice);
    if (window.canBeFiner) setTimeout(() => void this.askFiner(choice, signal), rest);
    return window;
  }

  private async askFiner(choice: WindowChoice, signal: AbortSignal): Promise<void> {
    try {
      const window = await this.asker.ask("finerWindow", choice, undefined, signal);
      if (!signal.aborted) this.onFiner(window);
    } catch {
      // What is drawn stays.
    }
  }
}
