import tseslint from "typescript-eslint";

export default tseslint.config(
  { ignores: ["dist/", "**/generated/", "package/dist/", "node_modules/"] },
  {
    files: ["package/src/**/*.ts", "page/src/**/*.ts", "page/vite.config.ts"],
    extends: [...tseslint.configs.strictTypeChecked],
    languageOptions: {
      parserOptions: { project: ["package/tsconfig.json", "page/tsconfig.json"] },
    },
    rules: {
      // Indexes are checked by the loops around them.
      "@typescript-eslint/no-non-null-assertion": "off",
      "@typescript-eslint/restrict-template-expressions": ["error", { allowNumber: true }],
      "@typescript-eslint/no-confusing-void-expression": ["error", { ignoreArrowShorthand: true }],
      "@typescript-eslint/no-empty-function": "off",
    },
  },
);
