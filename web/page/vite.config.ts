import { createHash } from "node:crypto";

import { defineConfig, type Plugin } from "vite";
import { viteSingleFile } from "vite-plugin-singlefile";

function hashes(page: string, tag: string): string {
  const found = page.matchAll(new RegExp(`<${tag}[^>]*>([\\s\\S]*?)</${tag}>`, "g"));
  const hash = (text: string): string => createHash("sha256").update(text).digest("base64");
  return Array.from(found, (match) => `'sha256-${hash(match[1] ?? "")}'`).join(" ");
}

// What the page may do: run its own script and style, compile WebAssembly, start its own worker. No
// network of any kind.
function policy(): Plugin {
  return {
    name: "policy",
    enforce: "post",
    generateBundle: {
      order: "post",
      handler(_, bundle) {
        for (const file of Object.values(bundle)) {
          if (file.type !== "asset" || !file.fileName.endsWith(".html")) continue;
          const page = String(file.source);
          const rules = [
            "default-src 'none'",
            `script-src ${hashes(page, "script")} 'wasm-unsafe-eval'`,
            `style-src ${hashes(page, "style")}`,
            "worker-src blob:",
            "base-uri 'none'",
            "form-action 'none'",
          ].join("; ");
          file.source = page.replace('Policy" content=""', `Policy" content="${rules}"`);
        }
      },
    },
  };
}

export default defineConfig({
  root: "page",
  plugins: [viteSingleFile(), policy()],
  build: { target: "es2023", modulePreload: false, outDir: "../dist", emptyOutDir: true },
  worker: { format: "iife" },
});
