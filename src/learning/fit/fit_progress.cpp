#include "learning/fit/fit_progress.h"

#include <iostream>

#include "learning/fit/residuals.h"

namespace quorvane {

namespace {

void print(const Residuals& residuals, const char* end) {
  if (residuals.samples == 0) return;
  std::cout << "f(w)=" << residuals.objective() << "  Mean error: " << residuals.meanError() << end;
}

}  // namespace

void FitProgress::begins(PositionType type) {
  std::cout << "Fitting weights of positiontype " << type << ".\n";
}

void FitProgress::building() {
  std::cout << "Building preconditioner ...";
}

void FitProgress::built(const FitSystem&, const Residuals& residuals) {
  std::cout << " done.\n\n";
  print(residuals, "\n");
  std::cout << "Weight fitting ";
}

void FitProgress::stepped(const Residuals&) {
  std::cout << ".";
}

void FitProgress::fitted() {
  std::cout << " done.\n";
}

void FitProgress::saved(float hitPercentage) {
  std::cout << "\nHit percentage: " << hitPercentage << "%\n\n";
}

void FitProgress::ends(const Residuals& residuals) {
  print(residuals, "\n\n");
}

}  // namespace quorvane
